// The tables that the program ships with: their form, and every figure against the shape that its row's
// dimensions draw.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>

#include "base/cp932.h"
#include "base/number.h"
#include "base/text_file.h"
#include "sections/steel_tables.h"
#include "sections/table_lines.h"
#include "sections/timber_tables.h"

namespace zorlan {
namespace {

using std::numbers::pi;

std::string SteelFolder() {
  return ZORLAN_SOURCE_DIR "/data/鋼材TABLE/";
}
std::string TimberFolder() {
  return ZORLAN_SOURCE_DIR "/data/木材TABLE/";
}

double Square(double x) {
  return x * x;
}

/// Area and moments of a shape put together of simple ones, in mm; x to the right, y up.
class Drawing {
 public:
  void Rectangle(double x0, double x1, double y0, double y1, double sign = 1) {
    const double dx = x1 - x0, dy = y1 - y0;
    Add(sign * dx * dy, (x0 + x1) / 2, (y0 + y1) / 2, dy * dy / 12, dx * dx / 12, 0);
  }
  void Disc(double D, double sign) { Add(sign * pi * D * D / 4, 0, 0, D * D / 16, D * D / 16, 0); }
  /// What a rounding of radius r fills into, or with -1 takes off, the corner (x, y) of two lines that leave
  /// it towards dx and dy.
  void Corner(double x, double y, double dx, double dy, double r, double sign) {
    const double share = 1 - pi / 4;                              // of the square of side r
    const double c = r * (10 - 3 * pi) / (12 - 3 * pi);           // centroid
    const double atCorner = 1 - 5 * pi / 16;                      // moment about a side, times r^4
    const double product = 19.0 / 24 - pi / 4;                    // about the corner, times r^4
    const double I = (atCorner * r * r - share * c * c) / share;  // per area
    const double P = (product * r * r - share * c * c) / share;
    Add(sign * share * r * r, x + dx * c, y + dy * c, I, I, dx * dy * P);
  }

  /// In the units of the tables, for outer faces at these coordinates.
  SteelSection Section(double left, double right, double low, double high) const {
    const double cx = Sx_ / A_, cy = Sy_ / A_;
    const double Ix = Iyy_ - A_ * cy * cy, Iy = Ixx_ - A_ * cx * cx, P = Ixy_ - A_ * cx * cy;
    const double middle = (Ix + Iy) / 2, radius = std::hypot((Ix - Iy) / 2, P);
    SteelSection s;
    s.A = A_ / 1e2;
    s.Ix = Ix / 1e4;
    s.Iy = Iy / 1e4;
    s.ix = std::sqrt(Ix / A_) / 10;
    s.iy = std::sqrt(Iy / A_) / 10;
    s.Zx = Ix / std::max(high - cy, cy - low) / 1e3;
    s.Zy = Iy / std::max(right - cx, cx - left) / 1e3;
    s.Cx = (cy - low) / 10;  // the tables measure Cx along the leg that x bends
    s.Cy = (cx - left) / 10;
    s.Iu = (middle + radius) / 1e4;
    s.Iv = (middle - radius) / 1e4;
    s.iu = std::sqrt((middle + radius) / A_) / 10;
    s.iv = std::sqrt((middle - radius) / A_) / 10;
    s.tanAlpha = std::tan(std::atan2(2 * std::abs(P), Ix - Iy) / 2);
    return s;
  }

 private:
  void Add(double A, double x, double y, double yy, double xx, double xy) {
    A_ += A;
    Sx_ += A * x;
    Sy_ += A * y;
    Iyy_ += A * (y * y + yy);
    Ixx_ += A * (x * x + xx);
    Ixy_ += A * (x * y + xy);
  }
  double A_ = 0, Sx_ = 0, Sy_ = 0, Iyy_ = 0, Ixx_ = 0, Ixy_ = 0;
};

using Values = std::array<double, kMaxSteelColumns>;

SteelSection DrawH(const Values& v) {
  const auto [H, B, tw, tf, r] = std::tie(v[0], v[1], v[2], v[3], v[4]);
  Drawing d;
  d.Rectangle(-B / 2, B / 2, -H / 2, H / 2);
  for (const double x : {-1.0, 1.0}) {
    d.Rectangle(x * tw / 2, x * B / 2, -x * (H / 2 - tf), x * (H / 2 - tf), -1);
    for (const double y : {-1.0, 1.0}) d.Corner(x * tw / 2, y * (H / 2 - tf), x, -y, r, 1);
  }
  return d.Section(-B / 2, B / 2, -H / 2, H / 2);
}

SteelSection DrawBox(const Values& v, double outerRadius) {
  const auto [H, B, t] = std::tie(v[0], v[1], v[2]);
  const double x1 = B / 2, y1 = H / 2;
  Drawing d;
  d.Rectangle(-x1, x1, -y1, y1);
  d.Rectangle(-x1 + t, x1 - t, -y1 + t, y1 - t, -1);
  for (const double x : {-1.0, 1.0})
    for (const double y : {-1.0, 1.0}) {
      d.Corner(x * x1, y * y1, -x, -y, outerRadius, -1);
      d.Corner(x * (x1 - t), y * (y1 - t), -x, -y, outerRadius - t, 1);
    }
  return d.Section(-x1, x1, -y1, y1);
}

SteelSection DrawPipe(const Values& v) {
  Drawing d;
  d.Disc(v[0], 1);
  d.Disc(v[0] - 2 * v[1], -1);
  return d.Section(-v[0] / 2, v[0] / 2, -v[0] / 2, v[0] / 2);
}

/// Inner faces of the flanges slope by 5 degrees; t2 is the thickness at the middle of the free flange. In
/// strips along the flanges, from the web's back at x = 0.
SteelSection DrawChannel(const Values& v) {
  const auto [H, B, t1, t2, r1, r2] = std::tie(v[0], v[1], v[2], v[3], v[4], v[5]);
  const double slope = 5 * pi / 180;
  const auto face = [&, B = B, t1 = t1, t2 = t2](double x) {
    return t2 + ((t1 + B) / 2 - x) * std::tan(slope);
  };
  const double rootX = t1 + r1, rootY = face(rootX) + r1 / std::cos(slope);
  const double toeX = B - r2, toeY = face(toeX) - r2 / std::cos(slope);
  Drawing d;
  d.Rectangle(0, t1, -H / 2, H / 2);
  const int strips = 2000;
  const double step = (B - t1) / strips;
  for (int i = 0; i < strips; ++i) {
    const double x = t1 + (i + 0.5) * step;
    double thickness = face(x);
    if (x < rootX - r1 * std::sin(slope)) thickness = rootY - std::sqrt(Square(r1) - Square(x - rootX));
    if (x > toeX + r2 * std::sin(slope)) thickness = toeY + std::sqrt(Square(r2) - Square(x - toeX));
    d.Rectangle(x - step / 2, x + step / 2, H / 2 - thickness, H / 2);
    d.Rectangle(x - step / 2, x + step / 2, -H / 2, -H / 2 + thickness);
  }
  return d.Section(0, B, -H / 2, H / 2);
}

/// Leg A upwards, leg B to the right.
SteelSection DrawAngle(const Values& v) {
  const auto [a, b, t, r1, r2] = std::tie(v[0], v[1], v[2], v[3], v[4]);
  Drawing d;
  d.Rectangle(0, t, 0, a);
  d.Rectangle(t, b, 0, t);
  d.Corner(t, t, 1, 1, r1, 1);
  d.Corner(t, a, -1, -1, r2, -1);
  d.Corner(b, t, -1, -1, r2, -1);
  return d.Section(0, b, 0, a);
}

/// The shapes a row may stand for: a square tube is of one of three corner radii.
std::vector<SteelSection> Drawn(SteelFamily family, const Values& v) {
  switch (family) {
    case SteelFamily::H:
      return {DrawH(v)};
    case SteelFamily::Box:
      return {DrawBox(v, 2 * v[2]), DrawBox(v, 2.5 * v[2]), DrawBox(v, 3.5 * v[2])};
    case SteelFamily::Pipe:
      return {DrawPipe(v)};
    case SteelFamily::Channel:
      return {DrawChannel(v)};
    case SteelFamily::Angle:
      return {DrawAngle(v)};
  }
  return {};
}

/// One unit of the last figure of a number as it is printed.
double LastUnit(std::string_view cell) {
  const std::size_t point = cell.find('.');
  return point == std::string_view::npos ? 1 : std::pow(10, -static_cast<double>(cell.size() - point - 1));
}

bool Agrees(std::string_view cell, double expected) {
  const double printed = ReadReal(cell);
  return std::abs(printed - expected) <= std::max(0.01 * std::abs(expected), 1.001 * LastUnit(cell));
}

/// The caption of the first column that disagrees, empty if none does.
std::string Disagreement(SteelFamily family, const std::vector<std::string_view>& cells,
                         const SteelSection& drawn) {
  const std::span<const SteelColumn> columns = FormOf(family).columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].unit == SteelUnit::Millimetre) continue;
    if (!Agrees(cells[i], drawn.*columns[i].field)) return std::string(columns[i].caption);
  }
  return {};
}

struct Shipped {
  SteelFamily family;
  std::size_t rows;
};

class ShippedSteelTable : public testing::TestWithParam<Shipped> {
 protected:
  ShippedSteelTable() {
    SteelTableFolder = SteelFolder();
    ForgetSectionTables();
  }
  ~ShippedSteelTable() override {
    SteelTableFolder.clear();
    ForgetSectionTables();
  }
};

INSTANTIATE_TEST_SUITE_P(All, ShippedSteelTable,
                         testing::Values(Shipped{SteelFamily::H, 486}, Shipped{SteelFamily::Box, 224},
                                         Shipped{SteelFamily::Pipe, 317}, Shipped{SteelFamily::Channel, 16},
                                         Shipped{SteelFamily::Angle, 77}),
                         [](const auto& each) { return std::string(FormOf(each.param.family).word); });

TEST_P(ShippedSteelTable, HasTheFormThatTheProgramReads) {
  const SteelFamilyForm& form = FormOf(GetParam().family);
  const std::string bytes = ReadBytes(SteelTablePath(GetParam().family));
  std::string text = Utf8FromCp932(bytes);
  EXPECT_EQ(Cp932FromUtf8(text).bytes, bytes);
  EXPECT_TRUE(text.starts_with(form.title)) << text.substr(0, 80);
  EXPECT_TRUE(text.ends_with("\r\n"));
  std::size_t lineFeeds = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i)
    if (bytes[i] == '\n') {
      ++lineFeeds;
      ASSERT_EQ(bytes[i - 1], '\r');
    }
  EXPECT_EQ(lineFeeds, 3 + GetParam().rows);

  std::string_view rest = text;
  TakeLine(rest);
  std::string_view captions = *TakeLine(rest), units = *TakeLine(rest);
  for (const SteelColumn& column : form.columns) {
    EXPECT_EQ(TakeCell(captions), column.caption);
    EXPECT_EQ(TakeCell(units), UnitCaption(column.unit));
  }
  EXPECT_TRUE(captions.empty());
}

TEST_P(ShippedSteelTable, HoldsEachSectionOnceAndFindsIt) {
  const std::vector<SteelRow>& rows = SteelRows(GetParam().family);
  ASSERT_EQ(rows.size(), GetParam().rows);
  for (const SteelRow& row : rows)
    EXPECT_EQ(FindSteelRow(GetParam().family, row.values, 1), &row) << row.name;
}

TEST_P(ShippedSteelTable, AgreesWithTheDimensionsOfEachRow) {
  const SteelFamily family = GetParam().family;
  const std::string text = ReadTextFile(SteelTablePath(family));
  std::string_view rest = text;
  SkipTableHead(rest);
  for (const SteelRow& row : SteelRows(family)) {
    std::string_view line = *TakeLine(rest);
    std::vector<std::string_view> cells;
    while (cells.size() < FormOf(family).columns.size()) cells.push_back(TakeCell(line));
    std::string disagreement = "?";
    for (const SteelSection& drawn : Drawn(family, row.values))
      if (!disagreement.empty()) disagreement = Disagreement(family, cells, drawn);
    EXPECT_EQ(disagreement, "") << row.name;
  }
}

class ShippedTimberTables : public testing::Test {
 protected:
  ShippedTimberTables() {
    TimberTableFolder = TimberFolder();
    ForgetTimberTables();
  }
  ~ShippedTimberTables() override {
    TimberTableFolder.clear();
    ForgetTimberTables();
  }
};

TEST_F(ShippedTimberTables, HoldTheGradesAndSectionsThatConditionsName) {
  EXPECT_EQ(TimberGrades().size(), 12U);
  EXPECT_EQ(TimberSections().size(), 15U);
  for (const char* grade :
       {"D．Fir-L 1級", "D．Fir-L 2級", "S･P･F 1級", "S･P･F 2級", "HemFir 1級", "HemFir 2級"})
    EXPECT_NE(FindTimberGrade(grade), nullptr) << grade;
  for (const std::string plies : {"", "2-", "3-"})
    for (const char* size : {"204", "206", "208", "210", "212"})
      EXPECT_NE(FindTimberSection(plies + size), nullptr) << plies << size;
}

TEST_F(ShippedTimberTables, AgreeWithTheDimensionsOfEachSection) {
  for (const TimberSectionRec& s : TimberSections()) {
    SCOPED_TRACE(s.name);
    const double t = s.thickness, w = s.width;
    const auto near = [](double printed, double expected) {
      EXPECT_NEAR(printed, expected, 0.01 * expected);
    };
    near(s.Ix, t * w * w * w / 12 / 1e6);
    near(s.Iy, w * t * t * t / 12 / 1e6);
    near(s.ix, w / std::sqrt(12));
    near(s.iy, t / std::sqrt(12));
    near(s.Zx, t * w * w / 6 / 1e3);
    near(s.Zy, w * t * t / 6 / 1e3);
    EXPECT_EQ(s.iStrut, std::min(s.ix, s.iy));
  }
}

TEST_F(ShippedTimberTables, SizesLoseStrengthWithTheirWidthAndGradesWithTheirRank) {
  for (const TimberSectionRec& s : TimberSections()) {
    EXPECT_NEAR(s.sizeCompression, std::pow(89 / s.width, 0.1), 0.006) << s.name;
    EXPECT_NEAR(s.sizeTension, std::pow(89 / s.width, 0.4), 0.006) << s.name;
    EXPECT_EQ(s.sizeBending, s.sizeTension) << s.name;
  }
  for (std::size_t i = 0; i < TimberGrades().size(); ++i) {
    const TimberGradeRec& grade = TimberGrades()[i];
    EXPECT_GT(grade.Fs, 0) << grade.name;
    if (i % 4 == 0) continue;  // the best of the next species group
    const TimberGradeRec& better = TimberGrades()[i - 1];
    EXPECT_LT(grade.Fc, better.Fc) << grade.name;
    EXPECT_LT(grade.Ft, better.Ft) << grade.name;
    EXPECT_LT(grade.Fb, better.Fb) << grade.name;
    EXPECT_LE(grade.E, better.E) << grade.name;
  }
}

}  // namespace
}  // namespace zorlan
