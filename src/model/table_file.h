// The sixteen tables of a model as small text files in the work folder, and the one generic buffer through
// which every form reads and commits them.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// A table's key, which is its file name in the work folder too, and the comment of its section line in a
/// deck.
struct TableName {
  std::string_view key;
  std::string_view comment;
};

/// The sixteen tables in the order that a deck has them.
inline constexpr std::array<TableName, 16> kTables = {{
    {"TITL", "%タイトル"},
    {"SUBT", "%サブタイトル"},
    {"CONT", "%コントロールデータ"},
    {"UNIT", "%単位"},
    {"NODE", "%節点データ"},
    {"ELEM", "%要素データ"},
    {"SECT", "%断面性能データ"},
    {"PLOD", "%節点荷重データ"},
    {"ELOD", "%部材荷重データ"},
    {"CLOD", "%ＣＭＱ荷重データ"},
    {"TLOD", "%温度荷重データ"},
    {"RIGD", "%剛域データ"},
    {"DISP", "%同一変形グループデータ"},
    {"SPRG", "%支点ばねデータ"},
    {"SPEC", "%強制変位データ"},
    {"ALFA", "%フレーム倍率データ"},
}};

/// "@NODE   %節点データ"
std::string SectionLine(const TableName& table);

/// One row of the table in hand. Cells count from 0 here; an empty text is an empty cell.
struct TableRow {
  std::string key;
  std::vector<std::string> cells;
};

extern std::vector<TableRow> TableRows;  // the rows of the one table in hand
extern int TableRowCount;                // how many of them are in use

/// Reads the file `key` of the work folder into TableRows (none without the file), or replaces the file from
/// them. A table without rows has no file. A cell below 1 in magnitude gets its 0 in front of the point; a
/// comment behind "%" becomes a cell when read, and goes out as an ordinary cell. Throws FileFault.
void TableIO(bool write, std::string_view key);

/// Keeps in mind that the work folder was given this table, or gave it up.
void NoteTable(std::string_view key, bool there);
/// The work folder was emptied: it owes no table.
void ForgetTables();
/// The tables that the work folder was given and hasn't any more, by their names such as "節点データ":
/// another program, or the user, has taken their files.
std::vector<std::string> VanishedTables();

/// The rows of a table file's text, and the text of rows: what TableIO does between file and buffer.
std::vector<TableRow> ParseTable(std::string_view key, std::string_view text);
std::string TableText(const std::vector<TableRow>& rows, int count);

}  // namespace zorlan
