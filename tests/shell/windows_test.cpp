#include "shell/windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/folders.h"
#include "shell/project_copies.h"
#include "shell/project_dialog.h"

namespace zorlan {
namespace {

/// Every entry, by name: one that is added and not looked at doesn't compile.
void ExpectQuietEntries(const ShellWindows& windows) {
  const auto& [openForms, closeForm, formsChanged, unloadForms, projectDialog, folderDialog, nameDialog,
               openInputMenu, openModelFigure, resetCascade, refresh, dropFigureData, drawTyped, markInFigure,
               takeNodes, takeElement, showRow, followControl, addNum, sectionEntry, showText, hasPdfViewer,
               openPdf] = windows;
  EXPECT_THAT(openForms(), testing::IsEmpty());
  EXPECT_TRUE(closeForm("InpNODE"));
  EXPECT_FALSE(formsChanged());
  unloadForms();
  ProjectDialog project;
  projectDialog(project);
  FolderDialog folder;
  folderDialog(folder);
  NameDialog name;
  nameDialog(name);
  for (const auto* const entry :
       {&openInputMenu, &openModelFigure, &resetCascade, &refresh, &dropFigureData, &followControl})
    (*entry)();
  drawTyped({{"NODE", {}}});
  markInFigure("NODE", 1);
  EXPECT_FALSE(takeNodes({1, 2}));
  EXPECT_FALSE(takeElement(1));
  EXPECT_FALSE(showRow("NODE", 0, 1));
  EXPECT_EQ(addNum("Add"), "Abote");
  std::vector<std::string> cells(11);
  EXPECT_FALSE(sectionEntry(cells));
  showText(TextWindow::Reader, 1, "path");
  EXPECT_FALSE(hasPdfViewer());
  openPdf("path");
}

TEST(ShellWindows, EntriesLeftAloneDoNothingAndHoldNothingUp) {
  ExpectQuietEntries({});
  InstallWindows({});
  ExpectQuietEntries(TheWindows());
}

}  // namespace
}  // namespace zorlan
