#include "sections/section_properties.h"

#include "sections/table_folder.h"

namespace zorlan {
namespace {

/// Fields in metres, as the analysis has them.
SectionConstants InMetres(int type, double P1, double P2, double P3, double P4, std::string_view name = "") {
  return SectionProperties(type, name, P1, P2, P3, P4, 1000);
}

class SectionPropertiesTest : public TableFolder {};

TEST_F(SectionPropertiesTest, DirectInputIsTakenAsEntered) {
  const SectionConstants s = InMetres(0, 0.01, 2e-4, 7, 0.005);
  EXPECT_EQ(s.A, 0.01);
  EXPECT_EQ(s.Ix, 2e-4);
  EXPECT_EQ(s.I, 2e-4);
  EXPECT_EQ(s.As, 0.005);
  EXPECT_EQ(s.kappa, 1.0);
  for (const double other : {s.Iy, s.Zx, s.Zy, s.ix, s.iy}) EXPECT_EQ(other, 0);
}

TEST_F(SectionPropertiesTest, RectangleTakesItsShapeFactorAndShearArea) {
  const SectionConstants s = InMetres(1, 0.4, 0.8, 1.2, 0.3);
  EXPECT_DOUBLE_EQ(s.A, 0.32);
  EXPECT_DOUBLE_EQ(s.Ix, 0.4 * 0.512 / 12);
  EXPECT_DOUBLE_EQ(s.Iy, 0.8 * 0.064 / 12);
  EXPECT_EQ(s.I, s.Ix);
  EXPECT_EQ(s.kappa, 1.2);
  EXPECT_EQ(s.As, 0.3);
}

TEST_F(SectionPropertiesTest, RectangleWiderThanDeepKeepsItsAxes) {
  const SectionConstants s = InMetres(1, 0.8, 0.4, 0, 0);
  EXPECT_DOUBLE_EQ(s.I, 0.8 * 0.064 / 12);
  EXPECT_LT(s.Ix, s.Iy);
}

TEST_F(SectionPropertiesTest, ShapeFactorZeroOrBelowIsOne) {
  for (const int type : {1, 7, 8}) {
    EXPECT_EQ(InMetres(type, 0.1, 0.2, 0, 0).kappa, 1.0);
    EXPECT_EQ(InMetres(type, 0.1, 0.2, -1, 0).kappa, 1.0);
    EXPECT_EQ(InMetres(type, 0.1, 0.2, 1.5, 0).kappa, 1.5);
  }
}

TEST_F(SectionPropertiesTest, HTakesItsWebForTheStrongAxisAndItsFlangesForTheWeak) {
  // 0.3 x 0.2 x 0.01 x 0.02, built up: Ix and Iy by (B H^3 - (B - tw)(H - 2 tf)^3)/12 and plate by plate
  const double Ix = (0.2 * 0.027 - 0.19 * 0.017576) / 12, Iy = (0.04 * 0.008 + 0.26 * 1e-6) / 12;
  const SectionConstants strong = InMetres(2, 0.3, 0.2, 0.01, 0.02);
  EXPECT_DOUBLE_EQ(strong.A, 0.0106);
  EXPECT_DOUBLE_EQ(strong.Ix, Ix);
  EXPECT_DOUBLE_EQ(strong.Iy, Iy);
  EXPECT_EQ(strong.I, strong.Ix);
  EXPECT_DOUBLE_EQ(strong.As, 0.01 * 0.26);
  EXPECT_EQ(strong.kappa, 1.0);
  const SectionConstants weak = InMetres(5, 0.3, 0.2, 0.01, 0.02);
  EXPECT_EQ(weak.Ix, strong.Ix);
  EXPECT_EQ(weak.I, weak.Iy);
  EXPECT_DOUBLE_EQ(weak.As, 2 * 0.2 * 0.02);
}

TEST_F(SectionPropertiesTest, HWithAStrongerWeakAxisKeepsItsAxes) {  // a wide section of low height
  const SectionConstants s = InMetres(2, 0.1, 0.4, 0.01, 0.02);
  EXPECT_LT(s.Ix, s.Iy);
  EXPECT_EQ(s.I, s.Ix);
}

// A box of 300 x 200 with the plate 9, by the formula, in m4.
const double kBoxIx = (0.2 * 0.027 - 0.182 * 0.282 * 0.282 * 0.282) / 12;
const double kBoxIy = (0.3 * 0.008 - 0.282 * 0.182 * 0.182 * 0.182) / 12;

TEST_F(SectionPropertiesTest, BoxOfTwoPlatesCountsTheSecondInItsWebAreasAlone) {
  const SectionConstants strong = InMetres(3, 0.3, 0.2, 0.009, 0.012),
                         weak = InMetres(6, 0.3, 0.2, 0.009, 0.012);
  EXPECT_NEAR(strong.A, 0.3 * 0.2 - 0.282 * 0.182, 1e-15);
  EXPECT_NEAR(strong.I, kBoxIx, 1e-15);
  EXPECT_NEAR(weak.I, kBoxIy, 1e-15);
  EXPECT_DOUBLE_EQ(strong.As, 2 * 0.009 * 0.276);
  EXPECT_DOUBLE_EQ(weak.As, 2 * 0.012 * 0.182);
  EXPECT_EQ(strong.kappa, 1.0);
}

TEST_F(SectionPropertiesTest, BoxAxesAreOrderedByTheWebAreasAndNotByTheInertias) {
  // The second plate 16: n = 2 9 (300 - 32) = 4824 is below m = 2 16 (200 - 18) = 5824, so all pairs swap.
  const SectionConstants strong = InMetres(3, 0.3, 0.2, 0.009, 0.016),
                         weak = InMetres(6, 0.3, 0.2, 0.009, 0.016);
  EXPECT_DOUBLE_EQ(strong.As, 0.005824);
  EXPECT_DOUBLE_EQ(weak.As, 0.004824);
  EXPECT_NEAR(strong.I, kBoxIy, 1e-15);
  EXPECT_NEAR(weak.I, kBoxIx, 1e-15);
  EXPECT_NEAR(strong.Zx, kBoxIy / 0.1, 1e-14);
  EXPECT_NEAR(strong.Zy, kBoxIx / 0.15, 1e-14);
}

TEST_F(SectionPropertiesTest, BoxWiderThanTallWorksWithItsGreaterInertia) {
  const SectionConstants tall = InMetres(3, 0.2, 0.1, 0.006, 0.006),
                         flat = InMetres(3, 0.1, 0.2, 0.006, 0.006);
  EXPECT_DOUBLE_EQ(tall.As, 2 * 0.006 * 0.188);
  EXPECT_DOUBLE_EQ(flat.As, tall.As);
  for (const auto value :
       {&SectionConstants::A, &SectionConstants::Ix, &SectionConstants::Iy, &SectionConstants::Zx,
        &SectionConstants::Zy, &SectionConstants::ix, &SectionConstants::iy, &SectionConstants::I})
    EXPECT_DOUBLE_EQ(flat.*value, tall.*value);
  EXPECT_GT(flat.Ix, flat.Iy);
  const SectionConstants weak = InMetres(6, 0.1, 0.2, 0.006, 0.006);
  EXPECT_DOUBLE_EQ(weak.As, 2 * 0.006 * 0.088);
  EXPECT_EQ(weak.I, weak.Iy);
  EXPECT_LT(weak.Iy, weak.Ix);
}

TEST_F(SectionPropertiesTest, PipeHasItsAreaAndAHalfForShear) {
  const SectionConstants s = InMetres(4, 0.1, 0.01, 5, 6);
  EXPECT_NEAR(s.A, 3.14159265358979 * 0.0009, 1e-15);
  EXPECT_NEAR(s.I, 3.14159265358979 * 9.225e-7, 1e-18);
  EXPECT_EQ(s.Iy, s.Ix);
  EXPECT_EQ(s.As, s.A);
  EXPECT_EQ(s.kappa, 0.5);
}

TEST_F(SectionPropertiesTest, TimberPutsItsStrongAxisFirst) {
  const double strong = 0.1 * 0.027 / 12, weak = 0.3 * 0.001 / 12;
  for (const auto& [B, D] : {std::pair{0.1, 0.3}, std::pair{0.3, 0.1}}) {
    const SectionConstants about7 = InMetres(7, B, D, 1.5, 0.02), about8 = InMetres(8, B, D, 1.5, 0.02);
    EXPECT_DOUBLE_EQ(about7.Ix, strong);
    EXPECT_DOUBLE_EQ(about7.Iy, weak);
    EXPECT_DOUBLE_EQ(about7.Zx, 0.1 * 0.09 / 6);
    EXPECT_EQ(about7.I, about7.Ix);
    EXPECT_EQ(about8.I, about8.Iy);
    EXPECT_EQ(about7.As, 0.02);
    EXPECT_EQ(about8.As, 0.02);
  }
}

TEST_F(SectionPropertiesTest, ChannelAndAngleTakeTheirAreaForShear) {
  const SectionConstants channel = InMetres(9, 0.2, 0.08, 0.008, 0.012);
  EXPECT_NEAR(channel.A, 0.003328, 1e-15);
  EXPECT_EQ(channel.As, channel.A);
  EXPECT_EQ(channel.kappa, 1.0);
  EXPECT_EQ(channel.I, channel.Ix);
  const SectionConstants weak = InMetres(10, 0.2, 0.08, 0.008, 0.012);
  EXPECT_EQ(weak.I, weak.Iy);
  const SectionConstants angle = InMetres(11, 0.1, 0.06, 0.01, 0.0085);
  EXPECT_NEAR(angle.A, 0.0015, 1e-15);
  EXPECT_NEAR(angle.I, (10.05e6 / 3 - 35 * 35 * 1500) * 1e-12, 1e-18);
  EXPECT_EQ(angle.As, angle.A);
  EXPECT_EQ(InMetres(12, 0.1, 0.06, 0.01, 0.0085).I, angle.Iy);
}

TEST_F(SectionPropertiesTest, AngleWithItsShortLegFirstIsTurned) {
  const SectionConstants a = InMetres(11, 0.1, 0.06, 0.01, 0), b = InMetres(11, 0.06, 0.1, 0.01, 0);
  EXPECT_DOUBLE_EQ(a.Ix, b.Ix);
  EXPECT_DOUBLE_EQ(a.Iy, b.Iy);
  EXPECT_DOUBLE_EQ(a.Zx, b.Zx);
  EXPECT_DOUBLE_EQ(a.iy, b.iy);
}

TEST_F(SectionPropertiesTest,
       ChannelWithWideFlangesIsTurned) {  // Iy about the web's centre line is the greater
  const SectionConstants s = InMetres(9, 0.1, 0.2, 0.008, 0.012);
  EXPECT_GT(s.Ix, s.Iy);
  EXPECT_NEAR(s.Ix, (2 * 0.012 * 0.008 + 0.076 * 0.512e-6) / 12, 1e-15);
}

TEST_F(SectionPropertiesTest, UnknownTypesAnswerZeros) {
  for (const int type : {-1, 13, 32767}) EXPECT_EQ(InMetres(type, 1, 1, 1, 1).A, 0);
}

TEST_F(SectionPropertiesTest, ASectionOfTheTablesAnswersWithItsRowInMetres) {
  // figures that no formula gives
  Write("H.CSV", std::string(kHead) + "400,200,8,13,13,80,20000,1500,15,4,1000,150\r\n");
  const SectionConstants s = InMetres(2, 0.4, 0.2, 0.008, 0.013);
  EXPECT_DOUBLE_EQ(s.A, 80e-4);
  EXPECT_DOUBLE_EQ(s.Ix, 20000e-8);
  EXPECT_DOUBLE_EQ(s.Iy, 1500e-8);
  EXPECT_DOUBLE_EQ(s.ix, 0.15);
  EXPECT_DOUBLE_EQ(s.iy, 0.04);
  EXPECT_DOUBLE_EQ(s.Zx, 1000e-6);
  EXPECT_DOUBLE_EQ(s.Zy, 150e-6);
  EXPECT_DOUBLE_EQ(s.As, 0.008 * 0.374);  // from the dimensions
  EXPECT_DOUBLE_EQ(InMetres(5, 0.4, 0.2, 0.008, 0.013).I, 1500e-8);
}

TEST_F(SectionPropertiesTest, AnHSectionBesideTheTableHasNoFilletWhateverItsNeighboursHave) {
  Write("H.CSV", std::string(kHead) + "400,200,8,13,13,83.37,23500,1740,16.8,4.56,1170,174\r\n");
  EXPECT_DOUBLE_EQ(InMetres(2, 0.4, 0.2, 0.008, 0.014).A, 0.4 * 0.2 - 0.192 * 0.372);
}

TEST_F(SectionPropertiesTest, RowsAreOrderedStrongAxisFirstLikeTheFormulas) {
  Write("BOX.CSV", std::string(kHead) + "100,200,6,33,500,1700,4,7,110,170\r\n");
  const SectionConstants box = InMetres(3, 0.1, 0.2, 0.006, 0.006);
  EXPECT_DOUBLE_EQ(box.I, 1700e-8);
  EXPECT_DOUBLE_EQ(box.Zx, 170e-6);
  EXPECT_DOUBLE_EQ(box.ix, 0.07);
  EXPECT_DOUBLE_EQ(InMetres(6, 0.1, 0.2, 0.006, 0.006).I, 500e-8);
  Write("YAMA.CSV", std::string(kHead) + "75,125,7,10,5,13.6,60,219,2.11,4.01,10.7,26.1\r\n");
  StartAnew();
  EXPECT_DOUBLE_EQ(InMetres(11, 0.075, 0.125, 0.007, 0.01).I, 219e-8);
  EXPECT_DOUBLE_EQ(InMetres(12, 0.075, 0.125, 0.007, 0.01).I, 60e-8);
  Write("MIZO.CSV", std::string(kHead) + "75,40,5,7,8,4,8.818,12,75,1.17,2.92,4.47,20.1,1.28\r\n");
  StartAnew();
  EXPECT_DOUBLE_EQ(InMetres(9, 0.075, 0.04, 0.005, 0.007).I, 75e-8);
  Write("PIPE.CSV", std::string(kHead) + "101.6,4.2,12.85,153,3.45,30.1\r\n");
  StartAnew();
  const SectionConstants pipe = InMetres(4, 0.1016, 0.0042, 0, 0);
  EXPECT_DOUBLE_EQ(pipe.As, 12.85e-4);
  EXPECT_DOUBLE_EQ(pipe.Iy, 153e-8);
  EXPECT_EQ(pipe.kappa, 0.5);
}

TEST_F(SectionPropertiesTest, ABoxRowIsFoundWhateverTheSecondPlate) {
  Write("BOX.CSV", std::string(kHead) + "200,200,9,66.67,3990,3990,7.73,7.73,399,399\r\n");
  const SectionConstants s = InMetres(3, 0.2, 0.2, 0.009, 0.012);
  EXPECT_DOUBLE_EQ(s.A, 66.67e-4);
  EXPECT_DOUBLE_EQ(s.As, 2 * 0.012 * 0.182);  // m above n: 0.004368 against 0.003168
}

TEST_F(SectionPropertiesTest, ATimberSectionIsFoundByItsNameAndAnswersItsRow) {
  Write("断面.CSV", std::string(kHead) + "206,206,0.96,0.84,0.84,38,140,8.7,0.64,40.4,11,11,124,33.7\r\n");
  const SectionConstants s = InMetres(7, 0.5, 0.5, 1.5, 0.004, " 206 ");
  EXPECT_DOUBLE_EQ(s.A, 38e-3 * 140e-3);  // thickness by width
  EXPECT_DOUBLE_EQ(s.Ix, 8.7e-6);         // 10^6 mm4
  EXPECT_DOUBLE_EQ(s.Iy, 0.64e-6);
  EXPECT_DOUBLE_EQ(s.ix, 0.0404);
  EXPECT_DOUBLE_EQ(s.iy, 0.011);
  EXPECT_DOUBLE_EQ(s.Zx, 124e-6);  // 10^3 mm3
  EXPECT_DOUBLE_EQ(s.Zy, 33.7e-6);
  EXPECT_EQ(s.As, 0.004);
  EXPECT_EQ(s.kappa, 1.5);
  EXPECT_DOUBLE_EQ(InMetres(8, 0.5, 0.5, 0, 0, "206").I, 0.64e-6);
}

TEST_F(SectionPropertiesTest, ATimberRowIsOrderedStrongAxisFirst) {
  Write("断面.CSV", std::string(kHead) + "flat,flat,1,1,1,140,38,0.64,8.7,11,40.4,11,33.7,124\r\n");
  EXPECT_DOUBLE_EQ(InMetres(7, 0, 0, 0, 0, "flat").I, 8.7e-6);
  EXPECT_DOUBLE_EQ(InMetres(8, 0, 0, 0, 0, "flat").I, 0.64e-6);
}

TEST_F(SectionPropertiesTest, ATimberNameThatIsNotInTheTableTakesTheRectangle) {
  Write("断面.CSV", std::string(kHead) + "206,206,0.96,0.84,0.84,38,140,8.7,0.64,40.4,11,11,124,33.7\r\n");
  EXPECT_DOUBLE_EQ(InMetres(7, 0.1, 0.2, 0, 0, "207").A, 0.02);
  EXPECT_DOUBLE_EQ(InMetres(7, 0.1, 0.2, 0, 0, "").A, 0.02);
}

TEST_F(SectionPropertiesTest, FieldsInMillimetresAnswerInMillimetres) {
  Write("H.CSV", std::string(kHead) + "400,200,8,13,13,80,20000,1500,15,4,1000,150\r\n");
  const SectionConstants s = SectionProperties(2, "", 400, 200, 8, 13, 1);
  EXPECT_DOUBLE_EQ(s.A, 8000);
  EXPECT_DOUBLE_EQ(s.Ix, 2e8);
  EXPECT_DOUBLE_EQ(s.As, 8 * 374);
}

}  // namespace
}  // namespace zorlan
