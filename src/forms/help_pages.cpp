#include "forms/help_pages.h"

#include <algorithm>
#include <span>

#include "base/cp932.h"
#include "base/number.h"
#include "sections/section_kinds.h"

namespace zorlan {
namespace {

using enum FormCase;
using Lines = std::vector<std::string>;

/// A line of a page, and the columns of the form that it explains.
struct HelpLine {
  std::string_view text;
  FormCase when = Always;
  std::string_view columns = {};                 // a digit each
  Lines (*table)(const FormSetting&) = nullptr;  // several lines in place of the text
};

struct HelpPage {
  std::string_view form, title;
  std::span<const HelpLine> lines;
  std::string_view measure = {};  // not shown: the window is at least as wide
};

constexpr std::string_view kNoPage = "入力説明";
constexpr std::string_view kTypeHead = " TYPE            P1        P2        P3        P4";

/// The thirteen TYPEs under the columns of their head.
Lines SectionTypeLines(const FormSetting& /*setting*/) {
  const std::size_t shapeAt = 4, firstField = kTypeHead.find("P1"),
                    fieldWidth = kTypeHead.find("P2") - firstField;
  Lines lines = {std::string(kTypeHead)};
  for (int type = 0; type < kSectionKinds; ++type) {
    const SectionKind& kind = SectionKindOf(type);
    std::string line = PadLeft(std::to_string(type), shapeAt - 1) + " ";
    line = PadRight(line.append(kind.shape), firstField);
    for (const std::string_view field : kind.fields) line += PadRight(field, fieldWidth);
    line.erase(line.find_last_not_of(' ') + 1);
    lines.push_back(line);
  }
  return lines;
}

struct LoadUnit {
  std::string_view types, gravitational, si;
};
constexpr LoadUnit kLoadUnits[] = {
    {"０", "(t/m)", "(kN/m)"},     {"１～９", "(t)", "(kN)"},     {"１０", "(t/m2)", "(kN/m2)"},
    {"１４", "(t/m)", "(kN/m)"},   {"１５", "(t/m)", "(kN/m)"},   {"１６", "(t/m2)", "(kN/m2)"},
    {"１７", "(t/m2)", "(kN/m2)"}, {"１８", "(t/m2)", "(kN/m2)"},
};

/// The unit of P for each TYPE of element load.
Lines LoadUnitLines(const FormSetting& setting) {
  constexpr std::size_t kUnitAt = 14;
  Lines lines = {PadRight("      TYPE", kUnitAt) + "Ｐの単位"};
  for (const LoadUnit& unit : kLoadUnits)
    lines.push_back(PadRight("      " + std::string(unit.types), kUnitAt) +
                    std::string(setting.si ? unit.si : unit.gravitational));
  return lines;
}

Lines FactorLine(const FormSetting& /*setting*/) {
  return {"ＳＩ単位変換係数を省力下場合 : " + RealText(kStandardGravity)};
}

constexpr HelpLine kUnit[] = {
    {"[単位]"},
    {"", Always, "", FactorLine},
};
constexpr HelpLine kNode[] = {
    {"[節点]"},
    {"節点数 1000以下      最大節点番号 5000以下", Always, "1"},
    {"Ｘ／Ｙ座標の単位は　ｍ　です。", Always, "23"},
    {"Ｕ：水平方向　Ｖ：鉛直方向　θ：回転", Frame},
    {"境界条件　自　　由   ：０", Frame, "456"},
    {"　　　　　拘　　束   ：１", Frame, "456"},
    {"　　　　　バネ支持   ：２", Frame, "456"},
    {"　　　　　傾斜ﾛｰﾗ支持：４ -- 傾斜ﾛｰﾗ角度を入力する", Frame, "4567"},
    {"（入力例）", Frame},
    {"    U=1,V=1,θ=1 ---- 固定支持", Frame},
    {"    U=1,V=1,θ=0 ---- ピン支持", Frame},
    {"    U=1,V=2,θ=1 ---- Ｙ方向のみバネ支持", Frame},
    {"    U=4,V=4,θ=0 ---- 傾斜ﾛｰﾗ角度を考慮した支点条件（回転自由）", Frame, "7"},
    {"    U=4,V=4,θ=1 ---- 傾斜ﾛｰﾗ角度を考慮した支点条件（回転固定）", Frame, "7"},
    {"    傾斜ﾛｰﾗ支持は、一般平面骨組み解析のときのみ有効です", Frame, "7"},
    {"Ｗ：Ｚ軸方向　θx：Ｘ軸回り　θy：Ｙ軸回り", Grid},
    {"境界条件　自　　由：０", Grid, "456"},
    {"　　　　　拘　　束：１", Grid, "456"},
    {"　　　　　バネ支持：２", Grid, "456"},
    {"（入力例）", Grid},
    {"    W=1,θx=1,θy=1 ---- 固定支持", Grid},
    {"    W=1,θx=1,θy=0 ---- Ｙ軸回りの回転有り", Grid},
    {"    W=2,θx=1,θy=1 ---- Ｚ軸方向のみバネ支持", Grid},
};
constexpr HelpLine kElement[] = {
    {"[要素]"},
    {"Ｉ端，Ｊ端：節点番号", Always, "23"},
    {"Ｉ端節点条件　剛：０　ピン：１", Always, "4"},
    {"Ｊ端節点条件　剛：０　ピン：１", Always, "5"},
    {"断面番号　　：1000以下", Always, "6"},
    {"剛域タイプ　：1000以下（無しの時は、０）", Always, "7"},
};
constexpr HelpLine kSection[] = {
    {"[断面]"},
    {"", Always, "2", SectionTypeLines},
    {"※ □形鋼の断面性能は、フレーム解析時には、P4を考慮していません、断面算定時には考慮します"},
    {"φ：剛性増大率（TYPE=1～10で有効、TYPE=0は、1.00 固定）", Always, "7"},
    {"Ｅ：ヤング係数(t/cm2) Ｇ：せん断弾性係数(t/cm2)《Ｇ=0でせん断変形を無視》", Gravitational, "89"},
    {"（参考例）", Gravitational, "89"},
    {"　　コンクリート(Fc200) Ｅ＝ 210(t/cm2)  Ｇ＝ 90(t/cm2)", Gravitational, "89"},
    {"　　鋼材　　　　　      Ｅ＝2100(t/cm2)  Ｇ＝810(t/cm2)", Gravitational, "89"},
    {"Ｅ：ヤング係数(N/mm2) Ｇ：せん断弾性係数(N/mm2)《Ｇ=0でせん断変形を無視》", Si, "89"},
    {"（参考例）", Si, "89"},
    {"　　コンクリート(Fc36) Ｅ＝ 25950(N/mm2)  Ｇ＝11540(N/mm2)", Si, "89"},
    {"　　鋼材　　　　　     Ｅ＝205000(N/mm2)  Ｇ＝79000(N/mm2)", Si, "89"},
    {"　　あかまつ（Ⅲ類）   Ｅ＝  8000(N/mm2)  Ｇ＝  533(N/mm2)", Si, "89"},
};
constexpr HelpLine kNodalLoad[] = {
    {"[節点荷重]"},
    {"荷重の符号に関して"},
    {"　F-X : Ｘ方向荷重（右向きを＋）", Frame, "2"},
    {"　F-Y : Ｙ方向荷重（上向きを＋）", Frame, "3"},
    {"　M-Z : ﾓｰﾒﾝﾄ荷重（反時計回りを＋）", Frame, "4"},
    {"　F-Z : Ｚ方向荷重（上向きを＋）", Grid, "2"},
    {"　M-X : Ｘ軸ﾓｰﾒﾝﾄ荷重（反時計回りを＋）", Grid, "3"},
    {"　M-Y : Ｙ軸ﾓｰﾒﾝﾄ荷重（反時計回りを＋）", Grid, "4"},
};
constexpr HelpLine kElementLoad[] = {
    {"[要素荷重]"},
    {"  P : 荷重の＋－は、指定する座標系に合わせる", Always, "2"},
    {"", Always, "23", LoadUnitLines},
    {" LY : 荷重タイプにより異なります。（マニュアル参照）", Always, "4"},
    {" K  : 荷重の倍率", Always, "5"},
    {" MG : 部材座標系 = 0   , 絶対座標系（鉛直 = 1　,水平 = 2）", Always, "6"},
};
constexpr HelpLine kCmqLoad[] = {
    {"[ＣＭＱ荷重]"},
    {"ＣＭＱ荷重の符号に関して"},
    {"　C   : 反時計回りを＋（両端固定の値、但し 両端ピンの場合は,0 とします）", Always, "24"},
    {"　Mo  : 下端引張を　＋（両端ピンの値）", Always, "3"},
    {"　Qo  : 上向きを　　＋（両端ピンの値）", Always, "56"},
    {"　MG  : 絶対座標系 = 1　 ,  部材座標系 = 0", Always, "7"},
};
constexpr HelpLine kTemperatureLoad[] = {
    {"[温度荷重]"},
    {" Y1 : Ｙ軸上の正方向の点（部材座標系で入力）", Always, "2"},
    {" T1 : 点Y1の温度（度）", Always, "3"},
    {" T2 : Y1と対称な位置の点の温度（度）", Always, "4"},
    {" α : 線膨張率（参考値=0.000012）　", Always, "5"},
    {" To : 標準温度（参考値=20）", Always, "6"},
    {" J  : 軸力の考慮　する=0 , しない=1", Always, "7"},
};
constexpr HelpLine kRigidZone[] = {
    {"[剛域]"},
    {" λi,λj : 剛域長比", Always, "23"},
    {"         （ 0≦λi,λj＜1 かつ λi+λj＜1 ）", Always, "23"},
};
constexpr HelpLine kSpring[] = {
    {"[支点ばね]"},
    {" K-x : Ｘ方向のバネ定数"},
    {" K-y : Ｙ方向のバネ定数"},
    {" K-θ: 回転のバネ定数"},
};
constexpr HelpLine kForcedDisplacement[] = {
    {"[強制変位]"},
    {" S-X : Ｘ方向の強制変位", Always, "3"},
    {" S-Y : Ｙ方向の強制変位", Always, "4"},
    {" S-θ: 回転の強制変位", Always, "5"},
};
constexpr HelpLine kSameDisplacement[] = {
    {"同一変形条件"},
    {" 同一変形する節点番号を入力します", Always, "1"},
};
constexpr HelpLine kMagnification[] = {
    {"フレーム倍率"},
    {" フレーム倍率範囲を、Ｘ座標で入力します", Always, "12"},
};

constexpr HelpPage kPages[] = {
    {"InpUNIT", "入力説明 -単位-", kUnit},
    {"InpNODE", "入力説明 -節点-", kNode},
    {"InpELEM", "入力説明 -要素-", kElement},
    {"InpSECT", "入力説明 -断面-", kSection},
    {"InpPLOD", "入力説明 -節点荷重-", kNodalLoad},
    {"InpELOD", "入力説明 -要素荷重-", kElementLoad,
     " LY : 荷重タイプにより異なります。（マニュアル参照）xxxxxxxxxxxx"},
    {"InpCLOD", "入力説明 -ＣＭＱ荷重-", kCmqLoad},
    {"InpTLOD", "入力説明 -温度荷重-", kTemperatureLoad},
    {"InpRIGD", "入力説明 -剛域-", kRigidZone},
    {"InpSPRG", "入力説明 -支点ばね-", kSpring},
    {"InpSPEC", "入力説明 -強制変位-", kForcedDisplacement},
    {"InpDISP", "入力説明 -同一変形-", kSameDisplacement},
    {"InpALFA", "入力説明 -フレーム倍率-", kMagnification},
};

std::string_view Title(const HelpPage* page) {
  return page == nullptr ? kNoPage : page->title;
}

const HelpPage* FindPage(std::string_view form) {
  const auto* const page = std::ranges::find(kPages, form, &HelpPage::form);
  return page == std::end(kPages) ? nullptr : page;
}

/// The lines of a page that count, those of a column (0: all).
Lines LinesOf(const HelpPage& page, int column, const FormSetting& setting) {
  Lines lines;
  for (const HelpLine& line : page.lines) {
    const bool wanted =
        column == 0 || line.columns.find(static_cast<char>('0' + column)) != std::string_view::npos;
    if (!wanted || !Applies(line.when, setting)) continue;
    if (line.table == nullptr)
      lines.emplace_back(line.text);
    else
      std::ranges::move(line.table(setting), std::back_inserter(lines));
  }
  return lines;
}

}  // namespace

InputHelp InputHelpOf(std::string_view form, const FormSetting& setting) {
  const HelpPage* const page = FindPage(form);
  InputHelp help;
  help.caption = Title(page);
  if (page == nullptr) return help;
  help.lines = LinesOf(*page, 0, setting);
  std::size_t width = HalfWidth(page->measure);
  for (const std::string& line : help.lines) width = std::max(width, HalfWidth(line));
  help.width = static_cast<int>(width);
  return help;
}

std::string ColumnHelp(std::string_view form, int column, const FormSetting& setting) {
  const HelpPage* const page = FindPage(form);
  if (page == nullptr || column < 1 || column > 9) return {};
  std::string text;
  for (const std::string& line : LinesOf(*page, column, setting))
    text.append(text.empty() ? "" : "\n").append(line);
  return text;
}

}  // namespace zorlan
