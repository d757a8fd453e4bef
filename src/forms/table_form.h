// The twelve table forms as data: header, masks, pages, row checks. One engine (table_editor.h) interprets
// them. Columns count from 1, as the messages and the cursor do; the fixed column with the row number is none
// of them. A form's name is "Inp" and its table's key.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/model_rec.h"

namespace zorlan {

/// What of the model in hand chooses a form's header, columns and checks.
struct FormSetting {
  int modelCode = kPlaneFrame;
  int maxLoadCase = 1;
  bool rollers = false;  // RollerFlag 1
  bool si = false;       // input units kN, N/mm2
  bool operator==(const FormSetting&) const = default;
};

/// The setting of the model in hand, from the header of InpModel; 1 to 1000 load cases whatever a deck says.
FormSetting CurrentFormSetting();

/// When a header or a check counts. A plane grid has no rollers, whatever its flag says.
enum class FormCase { Always, Frame, PlainFrame, Rollers, Grid, Gravitational, Si };
bool Applies(FormCase when, const FormSetting& setting);

// Masks: each lists what may be typed. "a" takes any character.
inline constexpr std::string_view kDigits = "0", kReal = "-0.e", kDecimal = "-0.", kAnyText = "a";

/// A unit that is added to a header cell by the input units.
enum class HeaderUnit { None, Force, Moment, Spring, RotarySpring, Length, Angle };

/// A piece of a header text; its unit stands behind it.
struct HeaderPiece {
  std::string_view text;
  HeaderUnit unit = HeaderUnit::None;
};

/// One header text: columns separated by "|", ">" for right alignment.
struct HeaderText {
  FormCase when;
  std::array<HeaderPiece, 6> pieces;
};

/// One row as its checks see it: its place and the texts of its cells, blanks cut off.
class RowView {
 public:
  RowView(int row, std::span<const std::string> cells, const FormSetting& setting)
      : row_(row), cells_(cells), setting_(setting) {}
  int Row() const { return row_; }
  const FormSetting& Setting() const { return setting_; }
  std::string_view Text(int column) const;
  bool Blank(int column) const { return Text(column).empty(); }
  /// The value of the cell as the deck's reader takes it; 0 for a blank one.
  double Real(int column) const;

 private:
  int row_;
  std::span<const std::string> cells_;
  const FormSetting& setting_;
};

/// A test of a row. The columns are tested from the left; the first test that fails is shown, and the cursor
/// goes to its column.
struct RowCheck {
  FormCase when;
  int column;
  bool (*passes)(const RowView& row);
  std::string_view message;
  int tested = 0;  // the column whose value is tested, where the cursor goes to another

  int Tested() const { return tested != 0 ? tested : column; }
};

/// A cell that is set when its row has passed.
struct RowFix {
  int column;
  bool (*applies)(const RowView& row);
  std::string_view text;
};

/// A question about a row that has passed; with No the row counts as failed at this column.
struct RowQuestion {
  int column;
  bool (*asks)(const RowView& row);
  std::string (*text)(const RowView& row);
};

/// A cell that gets a text as soon as something else stands in its row.
struct NewRowText {
  int column = 0;  // 0: none
  std::string_view text;
};

/// What a form has a page of rows for. The page number is field 1 of the table's rows then.
enum class Pages { None, LoadCases, Groups };

/// What a column's values mean, in the words of the input help.
struct ColumnTip {
  FormCase when;
  int column;
  std::string_view text;                               // lines are separated by LF
  std::string (*ofRow)(const RowView& row) = nullptr;  // in place of the text, where the row decides
};

struct TableForm {
  std::string_view name;                // "InpNODE"
  std::string_view caption;             // title of the window and of the box that tells a failing row
  std::string_view keyBlank, keyRange;  // the key column's messages; empty: it is no number of a thing
  std::span<const HeaderText> headers;
  std::span<const std::string_view> masks;  // by column; a header may show fewer
  std::span<const RowCheck> checks;         // behind the key's own
  std::span<const ColumnTip> tips = {};     // of columns that the input help doesn't explain as they are
  Pages pages = Pages::None;
  std::span<const RowFix> fixes = {};
  std::span<const RowQuestion> questions = {};
  NewRowText newRow = {};
  bool spreads = false;       // a table row's further cells are rows of the page
  bool dropsListing = false;  // its redraw removes the stored listing of the model
};

/// The twelve forms, in the order of the menu.
std::span<const TableForm> TableForms();
/// The form of this name, capitals or not; null if it is none of the twelve.
const TableForm* FindTableForm(std::string_view name);
/// "InpNODE" -> "NODE"
std::string TableKey(const TableForm& form);

/// The whole header text, its first column "番号".
std::string HeaderTextOf(const TableForm& form, const FormSetting& setting);

/// A column as the form shows it.
struct Column {
  std::string title;  // without blanks around it, "Ｅ"
  std::string unit;   // "(t/cm2)", or empty
  int width = 0;      // of the header cell, in half-width characters
  bool right = false;
  bool fixedWidth = false;  // as wide as told, and not what its kind usually takes
  std::string_view mask;
  bool IsNumber() const { return mask != kAnyText; }
};

/// The form's columns from column 1 on.
std::vector<Column> ColumnsOf(const TableForm& form, const FormSetting& setting);

/// What the values of a cell mean, in lines; empty where there is nothing to explain.
std::string CellTip(const TableForm& form, const FormSetting& setting, int column, const RowView& row);
/// The same on one line.
std::string TipLine(std::string_view tip);

/// The title of a page: "ケース1", "グループ1".
std::string PageTitle(Pages pages, int page);

}  // namespace zorlan
