// The settings files of the program's tree (AppPath), all in code page 932 and replaced safely: a file that
// is missing, cut short or damaged counts as far as it can be read. What can't be written is a FileFault, or
// a Fault for a text that the file can't hold; the old file is still there then.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "output/batch_print.h"

namespace zorlan {

// Setting.Ini: a quoted key and a quoted value a line. A key is three names, each followed by a colon.

inline constexpr std::size_t kMaxSettings = 3000;

/// One value to be stored.
struct Setting {
  std::string app, section, key, value;
};

/// The value, or the default if the key or the file is missing. Never fails.
std::string GetPrivateSetting(std::string_view app, std::string_view section, std::string_view key,
                              std::string_view defaultValue = {});

/// The values of several keys by one reading; empty where a key is missing.
std::vector<std::string> GetPrivateSettings(std::string_view app, std::string_view section,
                                            std::span<const std::string> keys);

/// Replaces the value of the key, or appends the pair, and rewrites the file. A pair beyond the limit of
/// entries is a Fault.
void SavePrivateSetting(std::string_view app, std::string_view section, std::string_view key,
                        std::string_view value);

/// The same for several keys by one rewriting.
void SavePrivateSettings(std::span<const Setting> settings);

// DataPath.Ini and Ver1DataPath.Ini: three lines, one plain text each. They are read as comma-delimited
// input, so a path with a comma splits.

/// Sets DataPath, ProjectName and ModelFile from DataPath.Ini. Without the file, or when the folder that it
/// names can't be found, DataPath is DefaultDataPath.
void LoadDataPath();
void SaveDataPath();

/// The three path parts of the old model last picked for conversion: empty without the file.
void LoadVer1Path(std::string& dataPath, std::string& project, std::string& model);
void SaveVer1Path(std::string_view dataPath, std::string_view project, std::string_view model);

// PrinterInf.Ini

inline constexpr std::int16_t kMonochrome = 1, kColour = 2;
inline constexpr std::int16_t kOneSide = 1, kLongEdge = 2, kShortEdge = 3;
inline constexpr std::int16_t kFullSize = 1, kHalfSize = 2;
inline constexpr std::int16_t kNoPageNumbers = 0, kPageNumbers = 1;

/// How listings and figures go to paper, in the order of the file.
struct PrinterRec {
  std::string name;
  std::string paper = "A4";
  std::int16_t orientation = kPortrait;
  std::int16_t colourMode = kMonochrome;
  std::int16_t duplex = kOneSide;
  std::int16_t reduction = kFullSize;
  std::int16_t pageNumbers = kPageNumbers;
  std::int16_t firstPage = 1;
  bool operator==(const PrinterRec&) const = default;
};

/// The printer settings in force.
extern PrinterRec PrinterSettings;

/// The printers of the system, and name, paper and orientation of the one in use there; an empty name: none.
struct SystemPrinters {
  std::vector<std::string> installed;
  std::string currentName;
  std::string currentPaper = "A4";
  std::int16_t currentOrientation = kPortrait;
};

/// The record of a file's text. Older files end behind four or six values: what is missing or no number reads
/// 1, and so does a first page below 0.
PrinterRec ParsePrinterInfo(std::string_view text, const SystemPrinters& printers);
std::string PrinterInfoText(const PrinterRec& printer);

/// Reads PrinterInf.Ini into PrinterSettings, or writes it. Without the file the settings are those of the
/// system printer, and the file is written. A printer that isn't installed gives way to the system printer.
void PrinterInfo(bool write, const SystemPrinters& printers = {});

/// What PrinterInf.Ini says as it stands; the defaults without the file. Writes nothing.
PrinterRec StoredPrinterInfo();

// Places of windows

/// Where a window was left, in the device-independent pixels of the desktop.
struct WindowPlace {
  int left = 0, top = 0, width = 0, height = 0;
  bool maximized = false;
  bool operator==(const WindowPlace&) const = default;
};

/// The place kept under a form's name; false if there is none that can be read.
bool LoadWindowPlace(std::string_view form, WindowPlace& place);
/// Keeps it. What fails is passed over: a window's place is worth no message.
void SaveWindowPlace(std::string_view form, const WindowPlace& place);

}  // namespace zorlan
