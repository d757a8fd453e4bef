#include "companion/deck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "base/fault.h"
#include "companion/deck_text.h"
#include "companion/solver.h"

namespace zorlan::companion::test {
namespace {

std::string Refusal(std::string_view bytes) {
  try {
    ReadDeck(bytes);
  } catch (const Fault& fault) {
    return fault.what();
  }
  return {};
}

TEST(CompanionDeck, ReadsTheColumnsAndTurnsRotationsCounterClockwise) {
  const Deck deck = ReadDeck(Joined(CantileverLines()));
  ASSERT_EQ(deck.nodes.size(), 3U);
  EXPECT_EQ(deck.nodes[1].x, 4);
  ASSERT_EQ(deck.beams.size(), 2U);
  EXPECT_EQ(deck.beams[0].nodeJ, 2);
  EXPECT_EQ(deck.beams[0].actionI, (EndAction{0, 6, 4}));
  EXPECT_EQ(deck.beams[0].actionJ, (EndAction{0, 0, 0}));
  EXPECT_EQ(deck.beams[1].actionJ, (EndAction{0, 6, -4}));
  ASSERT_EQ(deck.boundaries.size(), 3U);
  EXPECT_EQ(deck.boundaries[2].direction, (std::array<double, 3>{0, 0, -1}));
  EXPECT_EQ(deck.loads[1], (std::array<double, 3>{0, -1.5, -2}));
}

struct Spoiled {
  std::size_t line;  // from 1; 0: see text
  const char* text;
  const char* refusal;
};

const Spoiled kSpoiled[] = {
    {1, "%Ver.4", "1行目 ： 入力データの版が %Ver.4 ではありません"},
    {1, "", "1行目 ： 入力データの版が %Ver.4 ではありません"},
    {2, "    0    2    1", "2行目 ： 個数 0 が正しくありません"},
    {2, "99999    2    1", "6行目 ： 番号が 4 ではありません"},  // the lines behind the nodes are none
    {2, "   -3    2    1", "2行目 ： 個数 -3 が正しくありません"},
    {2, "    3    2    2", "2行目 ： 要素グループ数または荷重ケース数が正しくありません"},
    {2, "    x    2    1", "2行目 ： 1桁目が整数ではありません"},
    {3, "    2    0    1    0    1    0    1", "3行目 ： 番号が 1 ではありません"},
    {3, "    1    0    0    0    1    0    1", "3行目 ： 平面骨組みの節点ではありません"},
    {4, "    2    0    1    0    1    0    1     4..0", "4行目 ： 36桁目が実数ではありません"},
    {4, "    2    0    1    0    1    0    1     1E999", "4行目 ： 36桁目が実数ではありません"},
    {4, "    2    0    1    0    1    0    1       nan", "4行目 ： 数値が範囲を超えています"},
    {4, "    2    0    1    0    1    0    1         0", "14行目"},  // see below: node 2 lies on node 1
    {6, "    7    2    1    1    1", "6行目 ： 梁要素グループではありません"},
    {7, "    1 -21000000      0.3", "7行目 ： ヤング係数が範囲外です"},
    {7, "    1  21000000     -1.5", "7行目 ： ポアソン比が範囲外です"},
    {8, "    1     -0.01", "8行目 ： 断面積が範囲外です"},
    {10, "x", "10行目 ： 空行ではありません"},
    {14, "    1    1    4    1    1    1    0               000000000000",
     "14行目 ： 節点番号 4 が範囲外です"},
    {14, "    1    1    1    1    1    1    0               000000000000", "14行目 ： 部材長が０です"},
    {14, "    1    1    3    2    1    1    0               000000000000",
     "14行目 ： 材料番号 2 が範囲外です"},
    {14, "    1    1    3    1    0    1    0               000000000000",
     "14行目 ： 断面番号 0 が範囲外です"},
    {14, "    1    1    3    1    1    2    0               000000000000",
     "14行目 ： 荷重番号 2 が範囲外です"},
    {14, "    1    1    3    1    1    1    0               000000000001",
     "14行目 ： 材端条件が正しくありません"},
    {14, "    1    1    3    1    1    1    0               000000", "14行目 ： 材端条件が正しくありません"},
    {14, "    1    1    3    1    1    1    0               000090000000",
     "14行目 ： 材端条件が正しくありません"},
    {16, "", "16行目 ： 梁要素グループの終わりではありません"},
    {17, "    2    3", "17行目 ： 境界要素グループではありません"},
    {18, "    0    1    1", "18行目 ： 節点番号 0 が範囲外です"},
    {18, "    1    3    1", "18行目 ： 境界要素の種別 3 が範囲外です"},
    {18, "    1    1    3", "18行目 ： 境界要素の条件 3 が範囲外です"},
    {18, "    1    1    2                                  0        -5", "18行目 ： ばね定数が範囲外です"},
    {19, "         0         0         0", "19行目 ： 境界要素の方向が正しくありません"},
    {19, "         0         1         0", "19行目 ： 境界要素の方向が正しくありません"},
    {23, "         1         1         0", "23行目 ： 境界要素の方向が正しくありません"},
    {24, "    2    2         1", "24行目 ： 荷重ケースが正しくありません"},
    {26, "         2", "26行目 ： 入力データの終わりではありません"},
    {26, "", "26行目 ： 入力データの終わりではありません"},
};

TEST(CompanionDeck, RefusesWhatIsNoDeckWithTheLineAndTheReason) {
  for (const Spoiled& c : kSpoiled) {
    std::vector<std::string> lines = CantileverLines();
    lines[c.line - 1] = c.text;
    // Node 2 on node 1: the beam between nodes 3 and 2 is sound, so the first beam is led to node 2.
    if (c.line == 4) lines[13].replace(10, 5, "    2");
    const std::string refusal = Refusal(Joined(lines));
    EXPECT_TRUE(refusal.starts_with(c.refusal)) << c.line << " " << c.text << " said " << refusal;
  }
}

TEST(CompanionDeck, RefusesATextThatEndsTooEarlyOrGoesOn) {
  std::vector<std::string> lines = CantileverLines();
  lines.push_back("    1");
  EXPECT_EQ(Refusal(Joined(lines)), "27行目 ： 入力データの終わりより後にデータがあります");
  for (std::size_t count = 0; count < 26; ++count) {
    lines = CantileverLines();
    lines.resize(count);
    EXPECT_EQ(Refusal(Joined(lines)), std::to_string(count + 1) + "行目 ： 入力データが途中で終わっています");
  }
}

TEST(CompanionDeck, SpoiledAnywhereIsRefusedOrSolvedOrUnstable) {
  const std::string sound = Joined(CantileverLines());
  std::mt19937 random(11);
  int refused = 0, solved = 0;
  for (int round = 0; round < 5000; ++round) {
    std::string bytes = sound;
    const bool digits = round % 2 == 0;  // a number that is still one, or anything
    for (int change = 0; change <= round % 4; ++change) {
      char& spoiled = bytes[random() % bytes.size()];
      if (!digits || (spoiled >= '0' && spoiled <= '9'))
        spoiled = static_cast<char>(digits ? '0' + random() % 10 : random() % 256);
    }
    if (round % 7 == 0) bytes.resize(random() % bytes.size());
    try {
      const Deck deck = ReadDeck(bytes);
      Unstable unstable;
      if (const std::optional<Solution> solution = Solve(deck, unstable)) {
        ++solved;
        for (const auto& u : solution->displacements) ASSERT_TRUE(std::isfinite(u[0] + u[1] + u[2]));
      }
    } catch (const Fault&) {
      ++refused;
    }
  }
  EXPECT_GT(refused, 1000);
  EXPECT_GT(solved, 1000);
}

}  // namespace
}  // namespace zorlan::companion::test
