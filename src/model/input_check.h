// The messages of the input check. The first pass runs while a deck is read, row by row; the second over the
// whole model. The check is a command of its own and stops no analysis.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/model_rec.h"

namespace zorlan {

/// What an input check has found, a line each, in order. While the analysis reads a deck nothing is kept.
class CheckMessages {
 public:
  explicit CheckMessages(bool keep) : keep_(keep) {}
  /// The text followed by the deck line in question.
  void AboutLine(std::string_view text, std::string_view line);
  void Add(std::string line);
  const std::vector<std::string>& Lines() const { return lines_; }

 private:
  bool keep_;
  std::vector<std::string> lines_;
};

// Texts of the first pass, in the words of the tables.
inline constexpr std::string_view kNodeFields = "節点データ　　　　　： 節点データにエラー　　　　";
inline constexpr std::string_view kElementFields = "要素データ　　　　　： 要素データにエラー　　　　";
inline constexpr std::string_view kElementLength = "要素データ　　　　　： 部材長＝０です　　　　　　";
inline constexpr std::string_view kSectionFields = "断面性能データ　　　： 断面性能データにエラー　　";
inline constexpr std::string_view kNodalLoadFields = "節点荷重データ　　　： 節点荷重データにエラー　　";
inline constexpr std::string_view kElementLoadFields = "部材荷重データ　　　： 部材荷重データにエラー　　";
inline constexpr std::string_view kCmqLoadFields = "ＣＭＱ荷重データ　　： ＣＭＱ荷重データにエラー　";
inline constexpr std::string_view kTemperatureLoadFields =
    "温度荷重データ　　　： 温度荷重データにエラー　　";
inline constexpr std::string_view kRigidZoneFields = "剛域データ　　　　　： 剛域データにエラー　　　　";
inline constexpr std::string_view kSpringFields = "支点ばねデータ　　　： 支点ばねデータにエラー　　";
inline constexpr std::string_view kSpringNode = "支点ばねデータ　　　： 指定の節点が未定義エラー　　";
inline constexpr std::array<std::string_view, 3> kSpringDirection = {
    "支点ばねデータ　　　： Ｘ方向バネ支持設定が未定義エラー　　",
    "支点ばねデータ　　　： Ｙ方向バネ支持設定が未定義エラー　　",
    "支点ばねデータ　　　： 回転バネ支持設定が未定義エラー　　",
};
inline constexpr std::string_view kForcedFields = "強制変位データ　　　： 強制変位データにエラー　　";
inline constexpr std::string_view kForcedNode = "強制変位データ　　　： 指定の節点が未定義エラー　　";
// These three belong to the set of messages, though no test compares forced displacements with the node's
// codes.
inline constexpr std::array<std::string_view, 3> kForcedDirection = {
    "強制変位データ　　　： Ｘ方向バネ支持設定が未定義エラー　　",
    "強制変位データ　　　： Ｙ方向バネ支持設定が未定義エラー　　",
    "強制変位データ　　　： 回転バネ支持設定が未定義エラー　　",
};
inline constexpr std::string_view kGroupFields = "同一変形データ　　　： 同一変形データにエラー　　";
inline constexpr std::string_view kMagnificationFields = "フレーム倍率データ ： フレーム倍率データにエラー";

/// An element or a group names a node that the tables don't have.
std::string ElementNodeMessage(int element, int node);
std::string GroupNodeMessage(int node);

/// The second pass: doubles, and numbers that point nowhere.
void CheckWholeModel(const ModelRec& model, CheckMessages& messages);

}  // namespace zorlan
