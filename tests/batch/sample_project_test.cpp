// The sample project: every model is sound, and agrees with what docs/verification.md finds by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "batch/batch_program.h"
#include "graphics/list_reader.h"
#include "model/deck.h"
#include "model/model_state.h"
#include "support/text_boxes.h"

namespace zorlan {
namespace {

using testing::HasSubstr;
using testing::Not;

const std::string kProject = ZORLAN_SOURCE_DIR "/data/DATA/例題－１.zor/";
/// The models of the project by name.
std::vector<std::string> Models() {
  std::vector<std::string> models;
  for (const std::string& name : BatchProgram::Names(kProject))
    models.push_back(name.substr(0, name.rfind(".inp")));
  EXPECT_GE(models.size(), 6U);
  return models;
}

std::vector<double> Reals(const std::string& text) {
  std::vector<double> values;
  std::size_t at = 0;
  while ((at = text.find_first_not_of(" \r\n", at)) != std::string::npos) {
    const std::size_t end = text.find_first_of(" \r\n", at);
    values.push_back(ReadReal(std::string_view(text).substr(at, end - at)));
    if (end == std::string::npos) break;
    at = end;
  }
  return values;
}

/// One sample model, analysed in a folder of the test's own.
class Sample {
 public:
  Sample(const std::string& model, std::size_t nodes, std::size_t elements, double forceUnit)
      : nodes_(nodes), elements_(elements), forceUnit_(forceUnit) {
    program_.File(model + ".inp", ReadBytes(kProject + model + ".inp"));
    EXPECT_EQ(program_.Run({"analyze", model + ".inp"}).exitCode, 0);
    displacements_ = Reals(program_.Bytes(model + ".ANA/FT021"));
    forces_ = Reals(program_.Bytes(model + ".ANA/FT031"));
    reactions_ = Reals(program_.Bytes(model + ".ANA/FT022"));
    supports_ = static_cast<std::size_t>(Reals(program_.Bytes(model + ".ANA/FT022A")).at(1));
  }

  /// Direction 1 to 3 of a node row, m and rad.
  double Displacement(std::size_t loadCase, std::size_t node, std::size_t direction) const {
    return displacements_.at(((loadCase - 1) * nodes_ + node - 1) * 3 + direction - 1);
  }
  /// Position 1 to 7, N(I) Q(I) M(I) N(J) Q(J) M(J) M(C), in the model's unit.
  double Force(std::size_t loadCase, std::size_t element, std::size_t position) const {
    return forces_.at(((loadCase - 1) * elements_ + element - 1) * 7 + position - 1) * forceUnit_;
  }
  /// Direction 1 to 3 of a supported node.
  double Reaction(std::size_t loadCase, double node, std::size_t direction) const {
    for (std::size_t s = 0; s < supports_; ++s) {
      const std::size_t at = ((loadCase - 1) * supports_ + s) * 4;
      if (reactions_.at(at) == node) return reactions_.at(at + direction) * forceUnit_;
    }
    ADD_FAILURE() << "node " << node << " has no reaction";
    return 0;
  }

 private:
  BatchProgram program_;
  std::size_t nodes_, elements_, supports_ = 0;
  double forceUnit_;
  std::vector<double> displacements_, forces_, reactions_;
};

constexpr double kKilonewton = 9.80665, kTon = 1;
enum Position : std::size_t { NI = 1, QI, MI, NJ, QJ, MJ, MC };

TEST(SampleProject, EveryModelPassesTheInputCheckAndCanBeTrusted) {
  const BatchProgram program;
  for (const std::string& model : Models()) {
    program.File(model + ".inp", ReadBytes(kProject + model + ".inp"));
    EXPECT_EQ(program.Run({"check", model + ".inp"}).exitCode, 0) << model;
    const BatchResult result = program.Run({"analyze", model + ".inp"});
    EXPECT_EQ(result.exitCode, 0) << model;
    EXPECT_THAT(result.err, Not(HasSubstr("ＺＯＲＬＡＮ For Windows:"))) << model;
  }
}

// On a sheet of A4, loads and diagrams of every model.
TEST(SampleProject, NoTwoTextsOfAFigureCoverEachOther) {
  const BatchProgram program;
  for (const std::string& model : Models()) {
    program.File(model + ".inp", ReadBytes(kProject + model + ".inp"));
    ASSERT_EQ(program.Run({"analyze", model + ".inp"}).exitCode, 0) << model;
    for (const char* const kind : {"model", "load", "axial", "shear", "moment"})
      for (const char* const loadCase : {"1", "2"}) {
        const BatchResult result =
            program.Run({"figure", model + ".inp", "--kind", kind, "--case", loadCase, "--output", "f.tmp"});
        ASSERT_EQ(result.exitCode, 0) << model << result.err;
        std::vector<DrawOperation> list;
        const std::string text = ReadTextFile(program.Folder() + "f.tmp");
        std::string_view rest = text;
        while (const auto line = TakeLine(rest))
          if (const auto operation = ReadOperation(*line)) list.push_back(*operation);
        ASSERT_GT(list.size(), 3U);
        EXPECT_THAT(test::CoveringTexts(list), testing::IsEmpty()) << model << " " << kind << loadCase;
      }
  }
}

TEST(SampleProject, EveryModelIsUnchangedByOpeningAndSaving) {
  const TemporaryFolder folder;
  WorkPath = folder.Path() + "WK/";
  MakeFolder(WorkPath);
  DataPath = folder.Path();
  ProjectName.clear();
  for (const std::string& model : Models()) {
    ModelFile = model + ".inp";
    const std::string bytes = ReadBytes(kProject + ModelFile);
    ReplaceBytes(DeckPath(), bytes);
    LoadDeck();
    SaveDeck();
    EXPECT_EQ(ReadBytes(DeckPath()), bytes) << model;
  }
}

TEST(SampleProject, SteelFrameBalancesTheSeismicLoad) {
  const Sample frame("鉄骨ラーメン", 9, 10, kKilonewton);
  double lower = 0, upper = 0, overturning = 0;
  for (std::size_t column = 1; column <= 3; ++column) {
    lower += frame.Force(4, column, QI);
    upper += frame.Force(4, column + 3, QI);
    const double base = static_cast<double>(column);
    overturning += frame.Reaction(4, base, 3) + frame.Reaction(4, base, 2) * 6 * (base - 1);
  }
  EXPECT_NEAR(lower, 140, 1e-9);
  EXPECT_NEAR(upper, 80, 1e-9);
  EXPECT_NEAR(overturning, 60 * 4.0 + 80 * 7.5, 1e-9);
}

TEST(SampleProject, ConcreteFrameSwaysAsTheHandSolutionWithRigidZones) {
  const Sample frame("ＲＣラーメン", 4, 3, kTon);
  EXPECT_NEAR(frame.Displacement(2, 3, 1), 4.551557e-3, 1e-9);
  EXPECT_NEAR(frame.Displacement(2, 3, 2), 3.675362e-5, 1e-11);
  EXPECT_NEAR(frame.Displacement(2, 3, 3), -6.761352e-4, 1e-10);
  EXPECT_NEAR(frame.Force(2, 1, MJ), 27.78573, 1e-5);
  EXPECT_NEAR(frame.Force(2, 1, MI), 32.21427, 1e-5);
  EXPECT_NEAR(frame.Force(2, 1, NJ), 6.94643, 1e-5);
}

TEST(SampleProject, FiveStoreysBalanceTheSeismicLoadStoreyByStorey) {
  const Sample frame("同一変形五階建て", 30, 45, kKilonewton);
  const double shears[] = {800, 720, 600, 440, 240};
  double overturning = 0;
  for (std::size_t storey = 0; storey < 5; ++storey) {
    double shear = 0;
    for (std::size_t column = 1; column <= 5; ++column) shear += frame.Force(2, 5 * storey + column, QI);
    EXPECT_NEAR(shear, shears[storey], 1e-9) << storey;
    const std::size_t left = 5 * storey + 6;
    EXPECT_EQ(frame.Displacement(2, left, 1), frame.Displacement(2, left + 4, 1));
    const double base = static_cast<double>(storey + 1);
    overturning += frame.Reaction(2, base, 3) + frame.Reaction(2, base, 2) * 6 * (base - 1);
  }
  EXPECT_NEAR(overturning, 10200, 1e-8);
}

// Third points of a simple beam: 5 P L^3 / 162 E I + P L / 3 G As, and 11 w L^4 / 972 E I + w L^2 / 9 G As.
TEST(SampleProject, CrossingBeamsDeflectTogether) {
  const double longEI = 205e6 * 46800e-8, shortEI = 205e6 * 23500e-8;
  const double longGAs = 79e6 * 10 * 468e-6, shortGAs = 79e6 * 8 * 374e-6;
  const double longPerForce = 5 * 729 / (162 * longEI) + 9 / (3 * longGAs);
  const double shortPerForce = 5 * 216 / (162 * shortEI) + 6 / (3 * shortGAs);
  const double underLoad = 11 * 12 * 6561 / (972 * longEI) + 12 * 81 / (9 * longGAs);
  const double lift = underLoad / (longPerForce + shortPerForce);
  const Sample grid("格子梁", 12, 12, kKilonewton);
  EXPECT_NEAR(grid.Reaction(1, 1, 1), lift, 1e-8);
  EXPECT_NEAR(grid.Displacement(1, 4, 1), -lift * shortPerForce, 1e-12);
  EXPECT_NEAR(grid.Force(1, 7, MJ), lift * 2, 1e-8);
  const double toShort = 40 * longPerForce / (longPerForce + shortPerForce);
  EXPECT_NEAR(grid.Reaction(2, 1, 1), toShort, 1e-8);
  EXPECT_NEAR(grid.Reaction(2, 3, 1), 40 - toShort, 1e-8);
}

TEST(SampleProject, TrussForcesComeFromJointsAndSections) {
  const double sine = 1 / std::sqrt(5.0);
  const Sample truss("木造トラス", 8, 13, kKilonewton);
  EXPECT_NEAR(truss.Reaction(2, 1, 2), 5.4, 1e-9);
  EXPECT_NEAR(truss.Force(2, 1, NJ), 8.1, 1e-9);
  EXPECT_NEAR(-truss.Force(2, 5, NI), -4.05 / sine - 1.35 * sine, 1e-9);
  EXPECT_NEAR(truss.Force(2, 5, NJ), -4.05 / sine + 1.35 * sine, 1e-9);
  EXPECT_NEAR(truss.Force(2, 12, NJ), -1.35 / sine, 1e-9);
  EXPECT_NEAR(truss.Force(2, 10, NJ), 2.7, 1e-9);
  EXPECT_NEAR(truss.Force(2, 5, MC), 0.6075, 1e-9);
}

TEST(SampleProject, ContinuousBeamSharesItsLoadWithTheSprings) {
  const double EI = 205e6 * 23500e-8, EA = 205e6 * 83.37e-4, GAs = 79e6 * 8 * 374e-6, k = 50000;
  const double perForce = 16.0 * 16 * 16 / (48 * EI) + 16 / (4 * GAs) + 1.5 / k;
  const double gap = 5 * 15 * 65536 / (384 * EI) + 15 * 256 / (8 * GAs) + 120 / k;
  const Sample beam("連続梁", 9, 8, kKilonewton);
  const double middle = gap / perForce;
  EXPECT_NEAR(beam.Reaction(1, 5, 2), middle, 1e-8);
  EXPECT_NEAR(beam.Reaction(1, 1, 2), 120 - middle / 2, 1e-8);
  EXPECT_NEAR(beam.Force(1, 4, MJ), (120 - middle / 2) * 8 - 480, 1e-8);

  const double thrust = 0.000012 * 30 * 16 / (16 / EA + 2.0 / 20000);
  EXPECT_NEAR(beam.Reaction(2, 1, 1), thrust, 1e-8);
  for (std::size_t element = 1; element <= 8; ++element)
    EXPECT_NEAR(beam.Force(2, element, NJ), -thrust, 1e-8);

  const double pull = 6e-4 * 256 / 8 / perForce;
  EXPECT_NEAR(beam.Reaction(3, 5, 2), -pull, 1e-8);
  EXPECT_NEAR(beam.Force(3, 1, MI), EI * 6e-4, 1e-8);
}

}  // namespace
}  // namespace zorlan
