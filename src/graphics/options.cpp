#include "graphics/options.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

#include "base/delimited.h"
#include "base/fault.h"
#include "base/number.h"
#include "base/settings_file.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/model_state.h"

namespace zorlan {

ModelOptions DispOption = DefaultModelOptions();
AnalysisOptions DispOptionAna = DefaultAnalysisOptions();
DesignOptions DispOptionDesgn = DefaultDesignOptions();

namespace {

constexpr std::string_view kModelFile = "MODELEST.PRM", kDesignFile = "DESGNEST.PRM",
                           kAnalysisFile = "LOADEST1.PRM", kOlderAnalysisFile = "LOADEST.PRM";
constexpr std::string_view kDesignVersion = "Ver3", kOlderDesignVersion = "Ver2";

/// The values of a file, a line each, in order.
class Values {
 public:
  explicit Values(std::string_view text) {
    while (const std::optional<std::string_view> line = TakeLine(text)) {
      const std::string_view value = NoSpc(*line);
      values_.push_back(value.starts_with('"') ? DelimitedItems(value)[0] : std::string(value));
    }
  }
  /// The next value; nothing behind the last.
  const std::string* Take() { return next_ < values_.size() ? &values_[next_++] : nullptr; }
  /// How many are left, empty lines at the end not counted.
  std::size_t Left() const {
    std::size_t end = values_.size();
    while (end > next_ && values_[end - 1].empty()) --end;
    return end - next_;
  }

 private:
  std::vector<std::string> values_;
  std::size_t next_ = 0;
};

template <std::size_t N>
OptionRows<N> DefaultRows(const std::array<OptionRow, N>& forms) {
  OptionRows<N> rows;
  for (std::size_t row = 0; row < N; ++row) rows[row] = forms[row].text;
  return rows;
}

/// Takes the rows of a set; one that can't be meant leaves the row as it is. Answers how many could.
template <std::size_t N>
int TakeRows(Values& values, const std::array<OptionRow, N>& forms, OptionRows<N>& rows) {
  int taken = 0;
  for (std::size_t row = 0; row < N; ++row) {
    const std::string* const value = values.Take();
    if (value == nullptr || !IsOptionRow(forms[row], *value)) continue;
    rows[row] = *value;
    ++taken;
  }
  return taken;
}

/// The number that the next value holds.
std::optional<double> TakeNumber(Values& values) {
  const std::string* const value = values.Take();
  return value != nullptr ? ReadFinite(*value) : std::nullopt;
}

/// Takes a height in cm; false, with the height as it was, when there is none.
bool TakeHeight(Values& values, float& height) {
  const std::optional<double> read = TakeNumber(values);
  if (!read || *read < 0 || *read > double{kLargestDiagramHeight}) return false;
  height = static_cast<float>(*read);
  return true;
}

void TakeDecimals(Values& values, std::string& decimals) {
  const std::string* const value = values.Take();
  if (value != nullptr && value->size() == 1 && (*value)[0] >= '0' &&
      (*value)[0] <= '0' + kMostDiagramDecimals)
    decimals = *value;
}

void TakeColour(Values& values, Rgb& colour) {
  const std::optional<double> read = TakeNumber(values);
  if (read && *read >= 0 && *read <= 0xFFFFFF) colour = static_cast<Rgb>(*read);
}

/// A flag: -1 (or anything but 0) is set.
void TakeFlag(Values& values, bool& flag) {
  if (const std::optional<double> read = TakeNumber(values)) flag = *read != 0;
}

void AppendLine(std::string& text, std::string_view value) {
  text.append(value).append(kLineEnd);
}

template <std::size_t N>
void AppendRows(std::string& text, const OptionRows<N>& rows) {
  for (const std::string& row : rows) AppendLine(text, Quoted(row));
}

/// The shortest decimal form of a 32-bit float.
std::string HeightText(float height) {
  std::array<char, 64> room;
  const auto result = std::to_chars(room.data(), room.data() + room.size(), height, std::chars_format::fixed);
  return {room.data(), result.ptr};
}

/// A limit of the viewing range; empty: none.
std::string LimitText(double limit) {
  return std::abs(limit) >= kExtentStart ? std::string() : RealText(limit);
}

/// Takes a limit, or leaves it as it is for an empty field. False: the field is no limit.
bool TakeLimit(const std::string& field, double& limit) {
  if (field.empty()) return true;
  const std::optional<double> read = IsNumberText(field) ? ReadFinite(field) : std::nullopt;
  if (read) limit = *read;
  return read.has_value();
}

/// The two rows: the limits xLower, xUpper, yLower, yUpper, and the mode: 0 both ends, 1 one end. A range
/// hides a part of the model, so that nothing but these two rows, whole, can be one.
ViewingRange TakeRange(Values& values) {
  const std::string* const row = values.Take();
  const std::string* const mode = values.Take();
  if (row == nullptr || mode == nullptr || (*mode != "0" && *mode != "1")) return {};
  const std::vector<std::string> fields = OptionFields(*row);
  ViewingRange range;
  const std::array limits = {&range.xLower, &range.xUpper, &range.yLower, &range.yUpper};
  if (fields.size() != limits.size()) return {};
  for (std::size_t n = 0; n < limits.size(); ++n)
    if (!TakeLimit(fields[n], *limits[n])) return {};
  if (range.xLower > range.xUpper || range.yLower > range.yUpper) return {};
  if (*mode == "1") range.mode = RangeMode::OneEnd;
  return range;
}

std::string RangeText(const ViewingRange& range) {
  const std::array limits = {LimitText(range.xLower), LimitText(range.xUpper), LimitText(range.yLower),
                             LimitText(range.yUpper)};
  std::string text;
  AppendLine(text, Quoted(JoinOptionFields(limits)));
  AppendLine(text, Quoted(range.mode == RangeMode::OneEnd ? "1" : "0"));
  return text;
}

/// Rows, three heights, three decimals: what both forms of the analysis file begin with. Answers the last
/// height read.
float TakeCommonPart(Values& values, AnalysisOptions& options, bool& anyRow) {
  anyRow = TakeRows(values, kAnalysisRows, options.rows) > 0;
  float last = options.HeightShear;
  for (float* const height : {&options.HeightDisplacement, &options.HeightNormal, &options.HeightMoment})
    if (TakeHeight(values, *height)) last = *height;
  for (std::string* const decimals :
       {&options.DecimalsNormal, &options.DecimalsShear, &options.DecimalsMoment})
    TakeDecimals(values, *decimals);
  return last;
}

/// What the newer form adds: the height of shear, the two colours and the flag.
void TakeNewerPart(Values& values, AnalysisOptions& options) {
  TakeHeight(values, options.HeightShear);
  TakeColour(values, options.tension);
  TakeColour(values, options.compression);
  TakeFlag(values, options.ScaleOverAllCases);
}

std::string PathOf(std::string_view file) {
  return AppPath + std::string(file);
}

/// Removes an option file that is read no more. What stays is passed over.
void Forget(std::string_view file) {
  try {
    RemoveFile(PathOf(file));
  } catch (const Fault&) {
    // The next start comes to the same.
  }
}

}  // namespace

ModelOptions DefaultModelOptions() {
  return {DefaultRows(kModelRows), {}};
}
DesignOptions DefaultDesignOptions() {
  return {DefaultRows(kDesignRows)};
}
AnalysisOptions DefaultAnalysisOptions() {
  AnalysisOptions options;
  options.rows = DefaultRows(kAnalysisRows);
  return options;
}

void SetDefaultModelOptions() {
  DispOption = DefaultModelOptions();
}
void SetDefaultDesignOptions() {
  DispOptionDesgn = DefaultDesignOptions();
}
void SetDefaultAnalysisOptions() {
  DispOptionAna = DefaultAnalysisOptions();
}

void LoadModelOptions() {
  DispOption = ParseModelOptions(ReadSettingsFile(PathOf(kModelFile)).value_or(""));
}

void LoadDesignOptions() {
  SetDefaultDesignOptions();
  const std::optional<std::string> text = ReadSettingsFile(PathOf(kDesignFile));
  if (!text) return;
  if (IsDesignOptions(*text))
    DispOptionDesgn = ParseDesignOptions(*text);
  else
    Forget(kDesignFile);
}

void LoadAnalysisOptions() {
  DispOptionAna = ParseAnalysisOptions(ReadSettingsFile(PathOf(kAnalysisFile)).value_or(""));
  const std::optional<std::string> older = ReadSettingsFile(PathOf(kOlderAnalysisFile));
  if (!older) return;
  DispOptionAna = ParseOlderAnalysisOptions(*older, DispOptionAna);
  try {
    SaveAnalysisOptions();
  } catch (const Fault&) {
    // The older file is still there for the next start.
  }
}

void SaveModelOptions() {
  ReplaceTextFile(PathOf(kModelFile), ModelOptionsText(DispOption));
}
void SaveDesignOptions() {
  ReplaceTextFile(PathOf(kDesignFile), DesignOptionsText(DispOptionDesgn));
}
void SaveAnalysisOptions() {
  ReplaceTextFile(PathOf(kAnalysisFile), AnalysisOptionsText(DispOptionAna));
  Forget(kOlderAnalysisFile);  // it is read first, and would bring back what these values replace
}

ModelOptions ParseModelOptions(std::string_view text) {
  ModelOptions options = DefaultModelOptions();
  Values values(text);
  TakeRows(values, kModelRows, options.rows);
  options.range = TakeRange(values);
  return options;
}

std::string ModelOptionsText(const ModelOptions& options) {
  std::string text;
  AppendRows(text, options.rows);
  return text + RangeText(options.range);
}

bool IsDesignOptions(std::string_view text) {
  Values values(text);
  const std::string* const version = values.Take();
  return version != nullptr && (*version == kDesignVersion || *version == kOlderDesignVersion);
}

DesignOptions ParseDesignOptions(std::string_view text) {
  DesignOptions options = DefaultDesignOptions();
  if (!IsDesignOptions(text)) return options;
  Values values(text);
  values.Take();
  TakeRows(values, kDesignRows, options.rows);
  return options;
}

std::string DesignOptionsText(const DesignOptions& options) {
  std::string text;
  AppendLine(text, Quoted(kDesignVersion));
  AppendRows(text, options.rows);
  return text;
}

AnalysisOptions ParseAnalysisOptions(std::string_view text) {
  AnalysisOptions options = DefaultAnalysisOptions();
  Values values(text);
  bool anyRow = false;
  TakeCommonPart(values, options, anyRow);
  TakeNewerPart(values, options);
  return options;
}

AnalysisOptions ParseOlderAnalysisOptions(std::string_view text, const AnalysisOptions& newer) {
  AnalysisOptions options = DefaultAnalysisOptions();
  Values values(text);
  bool anyRow = false;
  const float lastHeight = TakeCommonPart(values, options, anyRow);
  if (!anyRow) return newer;  // nothing of ours is in it
  options.HeightShear = lastHeight;
  if (values.Left() > 1)
    TakeNewerPart(values, options);
  else
    TakeFlag(values, options.ScaleOverAllCases);
  return options;
}

std::string AnalysisOptionsText(const AnalysisOptions& options) {
  std::string text;
  AppendRows(text, options.rows);
  for (const float height : {options.HeightDisplacement, options.HeightNormal, options.HeightMoment})
    AppendLine(text, HeightText(height));
  for (const std::string& decimals : {options.DecimalsNormal, options.DecimalsShear, options.DecimalsMoment})
    AppendLine(text, Quoted(decimals));
  AppendLine(text, HeightText(options.HeightShear));
  AppendLine(text, std::to_string(options.tension));
  AppendLine(text, std::to_string(options.compression));
  AppendLine(text, options.ScaleOverAllCases ? "-1" : "0");
  return text;
}

}  // namespace zorlan
