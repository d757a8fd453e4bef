#include "shell/settings.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "base/delimited.h"
#include "base/fault.h"
#include "base/number.h"
#include "base/settings_file.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/model_state.h"

namespace zorlan {

PrinterRec PrinterSettings;

namespace {

/// The text of a settings file; empty if it can't be read: that counts as a missing one.
std::string SettingsText(const std::string& path) {
  return ReadSettingsFile(path).value_or("");
}

std::string SettingsPath() {
  return AppPath + "Setting.Ini";
}

/// Setting.Ini holds kMaxSettings entries; rows of tables and paths are among them.
constexpr std::size_t kLargestStore = std::size_t{4} << 20;

std::string StoreText() {
  return ReadSettingsFile(SettingsPath(), kLargestStore).value_or("");
}

struct Entry {
  std::string key, value;
};

std::vector<Entry> ParseSettings(std::string_view text) {
  std::vector<Entry> entries;
  while (const std::optional<std::string_view> line = TakeLine(text)) {
    std::vector<std::string> items = DelimitedItems(*line);
    if (items.size() > 1 && !items[0].empty()) entries.push_back({std::move(items[0]), std::move(items[1])});
  }
  return entries;
}

std::string EntryKey(std::string_view app, std::string_view section, std::string_view key) {
  std::string name;
  for (const std::string_view part : {app, section, key}) name.append(part).append(":");
  return name;
}

/// Sets one entry. True: the entries aren't what they were.
bool SetEntry(std::vector<Entry>& entries, const Setting& setting) {
  const std::string key = EntryKey(setting.app, setting.section, setting.key);
  const auto found =
      std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) { return entry.key == key; });
  if (found != entries.end()) return std::exchange(found->value, setting.value) != setting.value;
  if (entries.size() >= kMaxSettings)
    throw FileFault(SettingsPath(),
                    "設定の数が " + std::to_string(kMaxSettings) + " を超えるため、保存できません");
  entries.push_back({key, setting.value});
  return true;
}

/// A folder as a settings file has it, closed by this system's separator.
std::string FolderFromFile(std::string_view folder) {
  while (folder.ends_with('\\')) folder.remove_suffix(1);
  return FolderText(folder);
}

/// Three plain lines.
std::string ThreeLines(std::string_view a, std::string_view b, std::string_view c) {
  std::string text;
  for (const std::string_view line : {a, b, c}) text.append(line).append(kLineEnd);
  return text;
}

std::string PrinterPath() {
  return AppPath + "PrinterInf.Ini";
}

/// The whole number of an item; 1 where there is none.
std::int16_t NumberItem(const std::vector<std::string>& items, std::size_t place) {
  if (place >= items.size() || !ReadFinite(items[place])) return 1;
  return ReadInt16(items[place]).value_or(1);
}

PrinterRec SystemPrinter(const SystemPrinters& printers) {
  PrinterRec printer;
  printer.name = printers.currentName;
  printer.paper = printers.currentPaper;
  printer.orientation = printers.currentOrientation;
  return printer;
}

constexpr std::string_view kApp = "ZOR", kPlaces = "WindowPlace";

}  // namespace

std::string GetPrivateSetting(std::string_view app, std::string_view section, std::string_view key,
                              std::string_view defaultValue) {
  const std::string name = EntryKey(app, section, key);
  for (const Entry& entry : ParseSettings(StoreText()))
    if (entry.key == name) return entry.value;
  return std::string(defaultValue);
}

std::vector<std::string> GetPrivateSettings(std::string_view app, std::string_view section,
                                            std::span<const std::string> keys) {
  const std::vector<Entry> entries = ParseSettings(StoreText());
  std::vector<std::string> values;
  for (const std::string& key : keys) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
      return entry.key == EntryKey(app, section, key);
    });
    values.push_back(found != entries.end() ? found->value : std::string());
  }
  return values;
}

void SavePrivateSetting(std::string_view app, std::string_view section, std::string_view key,
                        std::string_view value) {
  const Setting setting{std::string(app), std::string(section), std::string(key), std::string(value)};
  SavePrivateSettings({&setting, 1});
}

void SavePrivateSettings(std::span<const Setting> settings) {
  // A file that is there and can't be read is not to be replaced by one with less in it.
  std::vector<Entry> entries;
  if (FileExists(SettingsPath())) {
    const std::optional<std::string> text = ReadSettingsFile(SettingsPath(), kLargestStore);
    if (!text) throw FileFault(SettingsPath(), "設定ファイルとして読めないため、設定を保存できません");
    entries = ParseSettings(*text);
  }
  bool changed = false;
  for (const Setting& setting : settings) changed |= SetEntry(entries, setting);
  if (!changed) return;
  std::string text;
  for (const Entry& entry : entries)
    text.append(Quoted(entry.key)).append(",").append(Quoted(entry.value)).append(kLineEnd);
  ReplaceTextFile(SettingsPath(), text);
}

void LoadDataPath() {
  DataPath = DefaultDataPath;
  const std::vector<std::string> items = DelimitedItems(SettingsText(AppPath + "DataPath.Ini"));
  if (!items.empty() && FolderExists(FolderFromFile(items[0]))) DataPath = FolderFromFile(items[0]);
  if (items.size() > 1) ProjectName = FolderFromFile(items[1]);
  if (items.size() > 2) ModelFile = items[2];
}

void SaveDataPath() {
  ReplaceTextFile(AppPath + "DataPath.Ini", ThreeLines(DataPath, ProjectName, ModelFile));
}

void LoadVer1Path(std::string& a, std::string& b, std::string& c) {
  std::vector<std::string> items = DelimitedItems(SettingsText(AppPath + "Ver1DataPath.Ini"));
  items.resize(3);
  a = std::move(items[0]);
  b = std::move(items[1]);
  c = std::move(items[2]);
}

void SaveVer1Path(std::string_view a, std::string_view b, std::string_view c) {
  ReplaceTextFile(AppPath + "Ver1DataPath.Ini", ThreeLines(a, b, c));
}

PrinterRec ParsePrinterInfo(std::string_view text, const SystemPrinters& printers) {
  const std::vector<std::string> items = DelimitedItems(text);
  PrinterRec printer = SystemPrinter(printers);
  if (!items.empty()) printer.name = items[0];
  if (items.size() > 1 && !items[1].empty()) printer.paper = items[1];
  if (items.size() > 2) printer.orientation = NumberItem(items, 2) == kLandscape ? kLandscape : kPortrait;
  std::size_t place = 3;
  for (std::int16_t* const option :
       {&printer.colourMode, &printer.duplex, &printer.reduction, &printer.pageNumbers, &printer.firstPage})
    *option = NumberItem(items, place++);
  if (printer.firstPage < 0) printer.firstPage = 1;
  return printer;
}

std::string PrinterInfoText(const PrinterRec& printer) {
  std::string text;
  for (const std::string& value : {printer.name, printer.paper}) text.append(Quoted(value)).append(kLineEnd);
  for (const std::int16_t value : {printer.orientation, printer.colourMode, printer.duplex, printer.reduction,
                                   printer.pageNumbers, printer.firstPage})
    text.append(std::to_string(value)).append(kLineEnd);
  return text;
}

PrinterRec StoredPrinterInfo() {
  return FileExists(PrinterPath()) ? ParsePrinterInfo(SettingsText(PrinterPath()), {}) : PrinterRec();
}

void PrinterInfo(bool write, const SystemPrinters& printers) {
  if (write) {
    ReplaceTextFile(PrinterPath(), PrinterInfoText(PrinterSettings));
    return;
  }
  const bool known = FileExists(PrinterPath());
  PrinterSettings = known ? ParsePrinterInfo(SettingsText(PrinterPath()), printers) : SystemPrinter(printers);
  if (std::find(printers.installed.begin(), printers.installed.end(), PrinterSettings.name) ==
      printers.installed.end())
    PrinterSettings.name = printers.currentName;
  if (known) return;
  try {
    PrinterInfo(/*write=*/true);
  } catch (const Fault&) {
    // The settings serve all the same; saving changed ones tells what is wrong.
  }
}

bool LoadWindowPlace(std::string_view form, WindowPlace& place) {
  const std::vector<std::string> items = DelimitedItems(GetPrivateSetting(kApp, kPlaces, form));
  std::array<int, 5> numbers{};
  for (std::size_t i = 0; i < numbers.size() && i < items.size(); ++i)
    numbers[i] = ReadInt16(items[i]).value_or(0);
  if (items.size() < 4 || numbers[2] <= 0 || numbers[3] <= 0) return false;
  place = {numbers[0], numbers[1], numbers[2], numbers[3], numbers[4] != 0};
  return true;
}

void SaveWindowPlace(std::string_view form, const WindowPlace& place) {
  std::string text;
  for (const int number : {place.left, place.top, place.width, place.height})
    text.append(std::to_string(number)).append(",");
  text += place.maximized ? "1" : "0";
  try {
    SavePrivateSetting(kApp, kPlaces, form, text);
  } catch (const Fault&) {
    // a window then comes up where it did the last time
  }
}

}  // namespace zorlan
