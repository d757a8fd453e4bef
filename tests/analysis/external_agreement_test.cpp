// The external road against the in-program one, on models that both can solve: a row of zeros among the
// forced displacements must change nothing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "analysis/external_tables.h"
#include "analysis/member_load_terms.h"
#include "support/external_model.h"
#include "support/random_models.h"

namespace zorlan::test {
namespace {

// Shares of the largest magnitude of the same quantity in the same case. Ten columns hold six to nine digits
// of a section's values: where the model's own numbers have only three, what is lost is lost in the end
// actions alone.
constexpr double kRoadsAgreement = 4e-6, kShortNumbersAgreement = 4e-7;

double Shortened(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.3g", value);
  return std::strtod(text, nullptr);
}

/// The model with every real rounded to three digits.
ModelRec WithShortNumbers(ModelRec model) {
  const auto shorten = [](auto&... values) { ((values = Shortened(values)), ...); };
  for (int r = 1; r <= model.NodeCount; ++r) shorten(model.Node[r].X, model.Node[r].Y);
  for (int r = 1; r <= model.SectCount; ++r) {
    SectRec& s = model.Sect[r];
    shorten(s.P1, s.P2, s.P4, s.E, s.G);
    if (s.G != 0) s.G = s.E / 2.5;  // a Poisson's ratio of 0.25
  }
  for (int r = 1; r <= model.RigdCount; ++r) shorten(model.Rigd[r].lambdaI, model.Rigd[r].lambdaJ);
  for (int r = 1; r <= model.SprgCount; ++r) shorten(model.Sprg[r].K1, model.Sprg[r].K2, model.Sprg[r].K3);
  for (int r = 1; r <= model.ElemCount; ++r) {
    ElemRec& e = model.Elem[r];
    const NodeRec &i = model.Node[e.I], &j = model.Node[e.J];
    e.length = std::hypot(j.X - i.X, j.Y - i.Y);
  }
  return model;
}

void AddZeroRow(ModelRec& model) {
  for (int c = 1; c <= model.MaxLoadCase; ++c)
    AppendRow(model.Spec, model.SpecCount, SpecRec{static_cast<std::int16_t>(c), 1, 0, 0, 0});
}

class ExternalAgreement : public ExternalModelTest {
 protected:
  /// Compares displacements, member forces and the reactions of held directions. `asymmetry` adds to the
  /// in-program member forces what that road leaves out of them.
  template <class Asymmetry>
  void ExpectAgreement(const ModelRec& model, double agreement, Asymmetry asymmetry) {
    const bool large = model.NodeCount > 29;
    const SolvedModel own = Solve(model, large ? SolverRoad::File : SolverRoad::InMemory);
    ASSERT_FALSE(own.instability);
    const Results external = SolveExternally(model);
    std::vector<double> forces = own.forces;
    asymmetry(own.members, forces);
    for (int c = 1; c <= model.MaxLoadCase; ++c) {
      for (int d = 0; d < 3; ++d) {
        Compare u(agreement), r(agreement);
        for (int row = 1; row <= model.NodeCount; ++row) {
          u.Take(external.U(row, d, c), own.U(row, d, c), row);
          if (model.Node[row].code[static_cast<std::size_t>(d)] != kFree)
            r.Take(external.R(model.Node[row].number, d, c), own.R(row, d, c), row);
        }
        u.Expect("displacement", c, d);
        r.Expect("reaction", c, d);
      }
      for (int p = 1; p <= kForcesPerElement; ++p) {
        Compare f(agreement);
        for (int row = 1; row <= model.ElemCount; ++row)
          f.Take(external.F(row, p, c), forces[ForcePlace(c, model.ElemCount, row, p)], row);
        f.Expect("member force", c, p);
      }
    }
  }
  void ExpectAgreement(const ModelRec& model, double agreement) {
    ExpectAgreement(model, agreement, [](const std::vector<Member>&, std::vector<double>&) {});
  }

 private:
  class Compare {
   public:
    explicit Compare(double agreement) : agreement_(agreement) {}
    void Take(double actual, double expected, int row) {
      largest_ = std::max(largest_, std::abs(expected));
      if (std::abs(actual - expected) > difference_ || std::isnan(actual)) {
        difference_ = std::isnan(actual) ? HUGE_VAL : std::abs(actual - expected);
        actual_ = actual;
        expected_ = expected;
        row_ = row;
      }
    }
    void Expect(const char* what, int loadCase, int place) const {
      EXPECT_LE(difference_, agreement_ * largest_ + 1e-12)
          << what << " " << place << " case " << loadCase << " row " << row_ << " actual " << actual_
          << " expected " << expected_;
    }

   private:
    double agreement_, largest_ = 0, difference_ = 0, actual_ = 0, expected_ = 0;
    int row_ = 0;
  };
};

std::vector<RandomShape> Shapes(ModelKind kind) {
  std::vector<RandomShape> shapes;
  for (std::uint32_t seed = 1; seed <= 8; ++seed)
    shapes.push_back({kind, 3 + static_cast<int>(seed % 3), 3 + static_cast<int>(seed % 4), seed});
  shapes.push_back({kind, 6, 6, 9});  // beyond 29 nodes
  return shapes;
}

TEST_F(ExternalAgreement, HoldsForFramesWithEveryLoadPinsSpringsAndRigidZones) {
  for (const RandomShape& shape : Shapes(kPlaneFrame)) {
    SCOPED_TRACE(shape.Name());
    ModelRec model = RandomModel(shape).Model();
    AddZeroRow(model);
    ExpectAgreement(model, kRoadsAgreement);
  }
}

TEST_F(ExternalAgreement, HoldsForSameDisplacementGroups) {
  for (const RandomShape& shape : Shapes(kSameDisplacementFrame)) {
    SCOPED_TRACE(shape.Name());
    ModelRec model = RandomModel(shape).Model();
    AddZeroRow(model);
    ExpectAgreement(model, kRoadsAgreement);
  }
}

TEST_F(ExternalAgreement, LosesOnlyTheDigitsOfTheEndActionsWhereTheModelsNumbersAreShort) {
  for (const ModelKind kind : {kPlaneFrame, kSameDisplacementFrame})
    for (const RandomShape& shape : Shapes(kind)) {
      SCOPED_TRACE(shape.Name());
      ModelRec model = WithShortNumbers(RandomModel(shape).Model());
      AddZeroRow(model);
      ExpectAgreement(model, kShortNumbersAgreement);
    }
}

/// Temperature rows on random elements, some without axial force.
void AddTemperatures(ModelRec& model, std::uint32_t seed, bool gradient) {
  std::mt19937 random(seed);
  const auto between = [&](double low, double high) {
    return low + (high - low) * (static_cast<double>(random()) / 4294967296.0);
  };
  for (int k = 0; k < model.ElemCount; ++k) {
    TlodRec load;
    load.loadCase = static_cast<std::int16_t>(1 + random() % static_cast<unsigned>(model.MaxLoadCase));
    load.element = static_cast<std::int16_t>(1 + random() % static_cast<unsigned>(model.ElemCount));
    load.Y1 = between(10, 40);
    load.T1 = between(0, 50);
    load.T2 = gradient ? between(0, 50) : load.T1;
    load.alpha = 0.000012;
    load.To = 20;
    load.J = random() % 4 == 0 ? 1 : 0;
    AppendRow(model.Tlod, model.TlodCount, load);
  }
}

TEST_F(ExternalAgreement, HoldsForTemperaturesThatAreEvenAcrossTheSection) {
  for (const RandomShape& shape : Shapes(kPlaneFrame)) {
    SCOPED_TRACE(shape.Name());
    ModelRec model = RandomModel(shape).Model();
    AddTemperatures(model, shape.seed, /*gradient=*/false);
    ExpectAgreement(model, kRoadsAgreement);
  }
}

// The in-program road leaves the moments of a gradient out of the member's own forces; here they arrive
// complete.
TEST_F(ExternalAgreement, DiffersByTheOwnEndMomentsOfATemperatureGradientAlone) {
  for (const RandomShape& shape : Shapes(kPlaneFrame)) {
    SCOPED_TRACE(shape.Name());
    ModelRec model = RandomModel(shape).Model();
    AddTemperatures(model, shape.seed, /*gradient=*/true);
    ExpectAgreement(
        model, kRoadsAgreement, [&model](const std::vector<Member>& members, std::vector<double>& forces) {
          for (int r = 1; r <= model.TlodCount; ++r) {
            const TlodRec& load = model.Tlod[r];
            const LoadTerms t =
                TemperatureTerms(load, members[static_cast<std::size_t>(load.element - 1)], false);
            double* const values = &forces[ForcePlace(load.loadCase, model.ElemCount, load.element, 1)];
            values[1] += t.Qi;
            values[2] += t.Ci;
            values[4] += t.Qj;
            values[5] += t.Cj;
            values[6] -= 0.5 * (t.Ci - t.Cj);
          }
        });
  }
}

TEST_F(ExternalAgreement, HoldsUnderFrameMagnification) {
  for (const ModelKind kind : {kPlaneFrame, kSameDisplacementFrame})
    for (const RandomShape& shape : Shapes(kind)) {
      SCOPED_TRACE(shape.Name());
      ModelRec model = RandomModel(shape).Model();
      // Beams across the bounds of a range have nodes with a factor and none themselves.
      AppendRow(model.Alfa, model.AlfaCount, AlfaRec{-1, 6, 2.5});
      AppendRow(model.Alfa, model.AlfaCount, AlfaRec{4, 8, 0.75});
      AddTemperatures(model, shape.seed, /*gradient=*/false);
      ExpectAgreement(model, kRoadsAgreement);
    }
}

}  // namespace
}  // namespace zorlan::test
