#include "model/input_check.h"

#include <algorithm>
#include <utility>

#include "model/number_rows.h"

namespace zorlan {
namespace {

std::string Text(int number) {
  return std::to_string(number);
}

/// Each number that stands more than once, in ascending order.
template <class Record>
void CheckDoubles(const Rows<Record>& rows, int count, std::string_view text, CheckMessages& messages) {
  std::vector<int> numbers;
  for (int r = 1; r <= count; ++r) numbers.push_back(rows[r].number);
  std::sort(numbers.begin(), numbers.end());
  for (std::size_t i = 0; i < numbers.size();) {
    std::size_t next = i + 1;
    while (next < numbers.size() && numbers[next] == numbers[i]) ++next;
    if (next - i > 1) messages.Add(std::string(text) + Text(numbers[i]));
    i = next;
  }
}

void CheckElements(const ModelRec& model, CheckMessages& messages) {
  const NumberRows sections(model.Sect, model.SectCount);
  const NumberRows rigids(model.Rigd, model.RigdCount);
  for (int r = 1; r <= model.ElemCount; ++r) {
    const ElemRec& element = model.Elem[r];
    if (model.SectCount > 0 && sections.Row(element.section) == 0)
      messages.Add("要素データ　　　　　： 指定の断面番号が未定義です　　　要素番号＝" +
                   Text(element.number) + "　　断面番号＝" + Text(element.section));
    if (model.RigdCount > 0 && element.rigid != 0 && rigids.Row(element.rigid) == 0)
      messages.Add("要素データ　要素番号 " + Text(element.number) + "： 指定の剛域番号(" +
                   Text(element.rigid) + ")が存在しません ");
  }
}

/// The words of one load table.
struct LoadTexts {
  std::string_view unknown, unknownNumber, range;
};
constexpr LoadTexts kNodalLoads = {
    "節点荷重データ　　　： 未定義の節点に荷重入力があります　　荷重ケース番号=", "   節点番号＝",
    "節点荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号="};
constexpr LoadTexts kElementLoads = {
    "要素荷重データ　　　： 未定義の要素に荷重入力があります　　荷重ケース番号=", "   要素番号＝",
    "要素荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号="};
constexpr LoadTexts kCmqLoads = {
    "ＣＭＱ荷重データ　　： 未定義の要素にＣＭＱ荷重入力があります　　荷重ケース番号=", "   要素番号＝",
    "ＣＭＱ荷重データ　　： 荷重ケース番号が指定範囲外です    荷重ケース番号="};
constexpr LoadTexts kTemperatureLoads = {
    "温度荷重データ　　　： 未定義の要素に温度荷重入力があります　　荷重ケース番号=", "   要素番号＝",
    "温度荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号="};

void CheckLoad(const LoadTexts& texts, int loadCase, int number, bool known, bool inRange,
               CheckMessages& messages) {
  if (!known)
    messages.Add(std::string(texts.unknown) + Text(loadCase) + std::string(texts.unknownNumber) +
                 Text(number));
  if (!inRange) messages.Add(std::string(texts.range) + Text(loadCase));
}

template <class Load>
void CheckLoadsOnElements(const LoadTexts& texts, const Rows<Load>& loads, int count,
                          const NumberRows& elements, int maxLoadCase, CheckMessages& messages) {
  for (int r = 1; r <= count; ++r) {
    const Load& load = loads[r];
    CheckLoad(texts, load.loadCase, load.element, elements.Row(load.element) != 0,
              load.loadCase >= 1 && load.loadCase <= maxLoadCase, messages);
  }
}

}  // namespace

void CheckMessages::AboutLine(std::string_view text, std::string_view line) {
  if (keep_) lines_.push_back(std::string(text) + std::string(line));
}

void CheckMessages::Add(std::string line) {
  if (keep_) lines_.push_back(std::move(line));
}

std::string ElementNodeMessage(int element, int node) {
  return "要素データ　要素番号 " + Text(element) + "： 指定の節点番号(" + Text(node) + ")が存在しません ";
}

std::string GroupNodeMessage(int node) {
  return "同一変形データ　　　　　： 指定の節点番号(" + Text(node) + ")が存在しません";
}

void CheckWholeModel(const ModelRec& model, CheckMessages& messages) {
  CheckDoubles(model.Node, model.NodeCount, "節点データ　　　　　： 節点二重定義エラー　　節点番号＝",
               messages);
  CheckDoubles(model.Elem, model.ElemCount, "要素データ　　　　　： 要素二重定義エラー　　要素番号＝",
               messages);
  CheckElements(model, messages);
  CheckDoubles(model.Sect, model.SectCount, "断面性能データ　　　： 断面性能二重定義エラー　　断面番号＝",
               messages);

  const NumberRows nodes(model.Node, model.NodeCount);
  for (int r = 1; r <= model.PlodCount; ++r) {
    const PlodRec& load = model.Plod[r];
    // The low end is tested on MaxLoadCase and not on the case: a nodal load of case 0 passes, unlike the
    // other loads.
    CheckLoad(kNodalLoads, load.loadCase, load.node, nodes.Row(load.node) != 0,
              load.loadCase <= model.MaxLoadCase && model.MaxLoadCase >= 1, messages);
  }
  const NumberRows elements(model.Elem, model.ElemCount);
  CheckLoadsOnElements(kElementLoads, model.Elod, model.ElodCount, elements, model.MaxLoadCase, messages);
  CheckLoadsOnElements(kCmqLoads, model.Clod, model.ClodCount, elements, model.MaxLoadCase, messages);
  CheckLoadsOnElements(kTemperatureLoads, model.Tlod, model.TlodCount, elements, model.MaxLoadCase, messages);
}

}  // namespace zorlan
