// The twelve table forms.
#include "forms/form_checks.h"
#include "forms/form_headers.h"
#include "forms/form_tips.h"
#include "forms/table_form.h"

namespace zorlan {
namespace {

using namespace form_data;

constexpr std::string_view kNodeBlank = "節点番号は省略できません", kNodeRange = "節点番号が入力範囲外です";
constexpr std::string_view kElementBlank = "要素番号は省略できません",
                           kElementRange = "要素番号が入力範囲外です";
constexpr std::string_view kSectionBlank = "断面番号は省略できません",
                           kSectionRange = "断面番号が入力範囲外です";
constexpr std::string_view kRigidBlank = "剛域タイプ番号は省略できません",
                           kRigidRange = "剛域タイプ番号が入力範囲外です";

constexpr TableForm kForms[] = {
    {"InpNODE", "節点データ", kNodeBlank, kNodeRange, kNodeHeaders, kNodeMasks, kNodeChecks, kNodeTips},
    {.name = "InpELEM",
     .caption = "要素データ",
     .keyBlank = kElementBlank,
     .keyRange = kElementRange,
     .headers = kElementHeaders,
     .masks = kElementMasks,
     .checks = kElementChecks,
     .dropsListing = true},
    {.name = "InpSECT",
     .caption = "断面性能データ",
     .keyBlank = kSectionBlank,
     .keyRange = kSectionRange,
     .headers = kSectionHeaders,
     .masks = kSectionMasks,
     .checks = kSectionChecks,
     .tips = kSectionTips,
     .fixes = kSectionFixes,
     .questions = kSectionQuestions},
    {"InpPLOD",
     "節点荷重データ",
     kNodeBlank,
     kNodeRange,
     kNodalLoadHeaders,
     kThreeValueMasks,
     {},
     {},
     Pages::LoadCases},
    {.name = "InpELOD",
     .caption = "部材荷重データ",
     .keyBlank = kElementBlank,
     .keyRange = kElementRange,
     .headers = kElementLoadHeaders,
     .masks = kElementLoadMasks,
     .checks = kElementLoadChecks,
     .tips = kElementLoadTips,
     .pages = Pages::LoadCases,
     .newRow = kElementLoadNewRow},
    {"InpCLOD",
     "ＣＭＱ荷重データ",
     kElementBlank,
     kElementRange,
     kCmqLoadHeaders,
     kCmqLoadMasks,
     kCmqLoadChecks,
     {},
     Pages::LoadCases},
    {"InpTLOD",
     "温度荷重データ",
     kElementBlank,
     kElementRange,
     kTemperatureLoadHeaders,
     kTemperatureLoadMasks,
     kTemperatureLoadChecks,
     {},
     Pages::LoadCases},
    {"InpSPRG", "支点ばねデータ", kNodeBlank, kNodeRange, kSpringHeaders, kThreeValueMasks, {}, kSpringTips},
    {"InpSPEC", "強制変位データ", kNodeBlank, kNodeRange, kForcedHeaders, kForcedMasks, kForcedChecks, {}},
    {"InpRIGD",
     "剛域データ",
     kRigidBlank,
     kRigidRange,
     kRigidZoneHeaders,
     kRigidZoneMasks,
     kRigidZoneChecks,
     {}},
    {"InpALFA",
     "フレーム倍率データ",
     {},
     {},
     kMagnificationHeaders,
     kMagnificationMasks,
     kMagnificationChecks,
     kMagnificationTips},
    {.name = "InpDISP",
     .caption = "同一変形グループデータ",
     .keyBlank = kNodeBlank,
     .keyRange = kNodeRange,
     .headers = kGroupHeaders,
     .masks = kGroupMasks,
     .checks = {},
     .pages = Pages::Groups,
     .spreads = true},
};

}  // namespace

std::span<const TableForm> TableForms() {
  return kForms;
}

}  // namespace zorlan
