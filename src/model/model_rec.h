// The model: every other part of the system speaks of these records. A model is sixteen tables; each row is a
// record below, with the fields in the order of the table's columns where nothing else is said.
//
// `RawModel` and `InpModel` hold the user's units (cm, mm, t or kN by the table UNIT), `CalcModel` tons,
// metres and radians. The solver's rows are the rows of the node and element tables; numbers are what the
// user typed.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace zorlan {

inline constexpr int kMaxNodes = 5000;
inline constexpr int kMaxElements = 5000;
inline constexpr int kMaxTableRows = 1000;  // of every other table
inline constexpr int kMaxGroupNodes = 100;
inline constexpr int kMaxLoadCases = 20;
inline constexpr double kStandardGravity = 9.80665;  // kN per t
inline constexpr double kCmPerM = 100;               // tables and lists tell small lengths in cm
inline constexpr double kMmPerM = 1000;              // section tables are in mm

/// The three structural models, as `ModelCode` holds them.
enum ModelKind : std::int16_t { kPlaneFrame = 1, kSameDisplacementFrame = 2, kPlaneGrid = 3 };

/// Whether a unit of the table UNIT is SI; what is neither 0 nor 1 counts as gravitational.
constexpr bool IsSI(int unit) {
  return unit == 1;
}

/// Support codes of a degree of freedom.
enum SupportCode : std::int16_t { kFree = 0, kFixed = 1, kSpring = 2, kInclinedRoller = 4 };

struct NodeRec {
  std::int16_t number = 0;
  double X = 0, Y = 0;                 // m
  std::array<std::int16_t, 3> code{};  // frame: U, V, θ; grid: W, θx, θy
  double rollerAngle = 0;              // degrees
};

struct ElemRec {
  std::int16_t number = 0;
  std::int16_t I = 0, J = 0;    // node numbers
  std::int16_t II = 0, JJ = 0;  // end conditions: 0 rigid, 1 pin
  std::int16_t section = 0;
  std::int16_t rigid = 0;  // rigid-zone type number, 0 none
  double length = 0;       // m; 0 when a node is missing
};

struct SectRec {
  std::int16_t number = 0;
  std::int16_t TYPE = 0;  // 0 to 12
  double P1 = 0, P2 = 0, P3 = 0, P4 = 0;
  double phi = 0;       // stiffness increase factor
  double E = 0, G = 0;  // t/cm2 or N/mm2; t/m2 in CalcModel
  std::string timberSection, species;
};

struct PlodRec {
  std::int16_t loadCase = 0, node = 0;
  double F1 = 0, F2 = 0, F3 = 0;
};

struct ElodRec {
  std::int16_t loadCase = 0, element = 0;
  double P = 0;
  std::int16_t TYPE = 0;
  double Ly = 0;  // m
  double K = 0;
  std::int16_t MG = 0;
};

struct ClodRec {
  std::int16_t loadCase = 0, element = 0;
  double Ci = 0, Mo = 0, Cj = 0, Qi = 0, Qj = 0;
  std::int16_t MG = 0;
};

struct TlodRec {
  std::int16_t loadCase = 0, element = 0;
  double Y1 = 0;          // cm
  double T1 = 0, T2 = 0;  // degrees
  double alpha = 0, To = 0;
  std::int16_t J = 0;  // 1: no axial force
};

struct RigdRec {
  std::int16_t number = 0;
  double lambdaI = 0, lambdaJ = 0;
};

struct SprgRec {
  std::int16_t node = 0;
  double K1 = 0, K2 = 0, K3 = 0;  // t/cm, t/cm, t*cm/rad in CalcModel; grid: t/cm, t*cm/rad, t*cm/rad
};

struct SpecRec {  // the table has the node first
  std::int16_t loadCase = 0, node = 0;
  double S1 = 0, S2 = 0, S3 = 0;  // cm, cm, rad
};

struct DispRec {
  std::int16_t group = 0;
  std::int16_t count = 0;
  std::array<std::int16_t, kMaxGroupNodes + 1> node{};  // filled from 1
};

struct AlfaRec {
  double X1 = 0, X2 = 0;  // m
  double alpha = 0;
};

/// A dynamic array with the index base 1: place 0 is there and unused.
template <class Record>
class Rows {
 public:
  Record& operator[](int row) { return records_[static_cast<std::size_t>(row)]; }
  const Record& operator[](int row) const { return records_[static_cast<std::size_t>(row)]; }
  int UpperBound() const { return static_cast<int>(records_.size()) - 1; }
  void Append(Record record) { records_.push_back(std::move(record)); }
  /// At least this upper bound; the contents stay.
  void Stretch(int upperBound) {
    if (upperBound > UpperBound()) records_.resize(static_cast<std::size_t>(upperBound) + 1);
  }

 private:
  std::vector<Record> records_{1};
};

struct ModelRec {
  std::string Title, SubTitle;
  std::int16_t ModelCode = 0;
  std::int16_t MaxLoadCase = 0;
  std::int16_t ListFlag = 0;
  std::int16_t RollerFlag = 0;
  std::int16_t InUnit = 0, OutUnit = 0;  // 0 gravitational, 1 SI
  double SIFactor = 0;
  std::int16_t ForceUnit = 0;

  std::int16_t NodeCount = 0, ElemCount = 0, SectCount = 0, PlodCount = 0, ElodCount = 0, ClodCount = 0,
               TlodCount = 0, RigdCount = 0, SprgCount = 0, SpecCount = 0, DispCount = 0, AlfaCount = 0;
  Rows<NodeRec> Node;
  Rows<ElemRec> Elem;
  Rows<SectRec> Sect;
  Rows<PlodRec> Plod;
  Rows<ElodRec> Elod;
  Rows<ClodRec> Clod;
  Rows<TlodRec> Tlod;
  Rows<RigdRec> Rigd;
  Rows<SprgRec> Sprg;
  Rows<SpecRec> Spec;
  Rows<DispRec> Disp;
  Rows<AlfaRec> Alfa;
};

}  // namespace zorlan
