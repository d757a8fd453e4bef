#include "shell/node_picking.h"

#include <gtest/gtest.h>

namespace zorlan {
namespace {

ProjectDialog Dialog(DialogMode mode) {
  ProjectDialog dialog;
  dialog.mode = mode;
  dialog.heading = "〔見出し〕";
  dialog.dataPath = "/old/";
  dialog.project = "p";
  dialog.model = "m";
  return dialog;
}

void ExpectBoxes(const ProjectDialog& dialog, const char* dataPath, const char* project, const char* model) {
  EXPECT_EQ(dialog.dataPath, dataPath);
  EXPECT_EQ(dialog.project, project);
  EXPECT_EQ(dialog.model, model);
}

TEST(NodePicking, AModelSetsAllThreeBoxes) {
  ProjectDialog dialog = Dialog(DialogMode::Open);
  PickNode(dialog, {NodeKind::Model, "梁.inp", "/d/DATA/例題.zor/梁.inp"});
  ExpectBoxes(dialog, "/d/DATA/", "例題", "梁");
  EXPECT_EQ(StartPath(dialog), "/d/DATA/例題.zor/梁.inp");
}

TEST(NodePicking, AProjectKeepsTheModelsNameForSaving) {
  ProjectDialog dialog = Dialog(DialogMode::SaveAs);
  PickNode(dialog, {NodeKind::Project, "a.b.zor", "/d/a.b.zor/"});
  ExpectBoxes(dialog, "/d/", "a.b", "m");
}

TEST(NodePicking, AFolderIsTheDataPath) {
  ProjectDialog dialog = Dialog(DialogMode::Open);
  PickNode(dialog, {NodeKind::Folder, "d", "/d/"});
  ExpectBoxes(dialog, "/d/", "p", "m");
}

TEST(NodePicking, AnOldModelIsAFolderUnderItsOwnNames) {
  ProjectDialog dialog = Dialog(DialogMode::ConversionSource);
  PickNode(dialog, {NodeKind::Model, "m1.zor", "/v1/工事/m1.zor/"});
  ExpectBoxes(dialog, "/v1/", "工事", "m1.zor");
  EXPECT_EQ(StartPath(dialog), "/v1/工事/m1.zor/");
}

TEST(NodePicking, TheHeadingOfOpeningFollowsTheBoxesAndTheOthersStay) {
  ProjectDialog dialog = Dialog(DialogMode::Open);
  EXPECT_EQ(HeadingOf(dialog), "〔p.zor/m.inp〕");
  dialog.model.clear();
  EXPECT_EQ(HeadingOf(dialog), "〔p.zor/〕");
  EXPECT_EQ(HeadingOf(Dialog(DialogMode::SaveAs)), "〔見出し〕");
}

}  // namespace
}  // namespace zorlan
