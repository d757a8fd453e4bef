// The timber tables: the grades ("材種.CSV") and the sections ("断面.CSV") of one folder, each three head
// lines and a row a line; a line with an empty first field is skipped. Read once, on the first look-up.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// Where the tables lie, with a closing separator; empty: there are none. Set before the first look-up.
extern std::string TimberTableFolder;

struct TimberGradeRec {
  std::string name, shortName;
  double Fc = 0, Ft = 0, Fb = 0, Fs = 0;  // base strengths: compression, tension, bending, shear; N/mm2
  double E = 0;                           // N/mm2
};

struct TimberSectionRec {
  std::string name, shortName;
  double sizeCompression = 0, sizeTension = 0, sizeBending = 0;  // size factors of the strengths
  double thickness = 0, width = 0;                               // mm
  double Ix = 0, Iy = 0;                                         // 10^6 mm4
  double ix = 0, iy = 0, iStrut = 0;                             // mm; iStrut: the radius for a strut
  double Zx = 0, Zy = 0;                                         // 10^3 mm3
};

/// Reads both tables; a second call does nothing. A missing file leaves its table empty, an unreadable one is
/// told to the user.
void LoadTimberTables();

/// Makes the next look-up read the tables anew. Ends the life of every record handed out before.
void ForgetTimberTables();

const std::vector<TimberGradeRec>& TimberGrades();
const std::vector<TimberSectionRec>& TimberSections();

/// The first record of a name, blanks around it aside; null if there is none. Costs a hash.
const TimberGradeRec* FindTimberGrade(std::string_view name);
const TimberSectionRec* FindTimberSection(std::string_view name);

/// The records of a file's text (UTF-8).
std::vector<TimberGradeRec> ParseTimberGrades(std::string_view text);
std::vector<TimberSectionRec> ParseTimberSections(std::string_view text);

}  // namespace zorlan
