#include "desktop/hand_over.h"

#include <filesystem>
#include <thread>

#include "desktop/desktop_test.h"

namespace zorlan::test {
namespace {

constexpr int kLongEnough = 5000, kShortWhile = 500;  // ms

class HandOverTest : public DesktopTest {
 protected:
  static std::string Letter() { return AppPath + "open.txt"; }
  bool Opens(const std::string& model) {
    return QTest::qWaitFor([&] { return ModelFile == model; }, kLongEnough);
  }
};

TEST_F(HandOverTest, ARunningProgramTakesTheDeckOfASecondStart) {
  const std::string deck = Sample("連続梁.inp");
  bool taken = false;
  std::thread second([&] { taken = HandOver(deck); });
  EXPECT_TRUE(Opens("連続梁.inp"));
  second.join();
  EXPECT_TRUE(taken);
}

TEST_F(HandOverTest, ADeckHandedOverDuringTheStartIsOpened) {
  const std::string deck = Sample("連続梁.inp");
  Stop();
  ReplaceBytes(Letter(), deck);
  Start();
  EXPECT_TRUE(Opens("連続梁.inp"));
  EXPECT_FALSE(FileExists(Letter()));
}

TEST_F(HandOverTest, ALetterThatCannotBeReadHoldsUpNoStart) {
  Stop();
  std::filesystem::create_symlink("/proc/self/mem", Letter());
  Start();  // without a word
  QTest::qWait(kShortWhile);
  EXPECT_TRUE(Window().isVisible());
  ReplaceBytes(Letter(), Sample("連続梁.inp"));
  EXPECT_TRUE(Opens("連続梁.inp"));
}

TEST_F(HandOverTest, ALetterWaitsForTheEndOfAModalBox) {
  Script().Expect(QStringLiteral("frmPrinterSet"), [this](QWidget& dialog) {
    ReplaceBytes(Letter(), Sample("連続梁.inp"));
    QTest::qWait(kShortWhile);
    EXPECT_EQ(ModelFile, "");
    EXPECT_TRUE(FileExists(Letter()));
    Click(dialog, "cancel");
  });
  Choose("mnuFileItem(8)");
  EXPECT_TRUE(Opens("連続梁.inp"));
}

TEST_F(HandOverTest, ALetterThatNobodyTakesIsTakenBack) {
  Stop();
  EXPECT_FALSE(HandOver("deck"));
  EXPECT_FALSE(FileExists(Letter()));
}

}  // namespace
}  // namespace zorlan::test
