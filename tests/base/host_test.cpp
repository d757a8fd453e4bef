#include "base/host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorlan {
namespace {

using testing::ElementsAre;

class MessageWatchTest : public testing::Test {
 protected:
  MessageWatchTest() {
    Host host;
    host.message = [this](std::string_view text, std::string_view) { shown_.emplace_back(text); };
    InstallHost(host);
  }
  ~MessageWatchTest() override { InstallHost({}); }
  const std::vector<std::string>& Shown() const { return shown_; }

 private:
  std::vector<std::string> shown_;
};

/// Every entry, by name: one that is added and not looked at doesn't compile.
void ExpectQuietEntries(const Host& host) {
  const auto& [message, question, progress, hourglass, runAndWait, showListing] = host;
  message("text", "title");
  EXPECT_EQ(question("text", "title", Buttons::YesNo), Answer::No);
  EXPECT_EQ(question("text", "title", Buttons::YesNoCancel), Answer::Cancel);
  EXPECT_EQ(question("text", "title", Buttons::OkCancel), Answer::Cancel);
  progress("what", 0.5);
  hourglass(true);
  EXPECT_EQ(runAndWait("program", "folder/").how, ProgramEnd::How::NotStarted);
  showListing("path");
}

TEST(Host, EntriesLeftAloneAreQuietAndGiveTheSafeAnswer) {
  ExpectQuietEntries({});
  InstallHost({});
  ExpectQuietEntries(TheHost());
}

TEST_F(MessageWatchTest, KeepsTheFirstMessageAndLetsAllThrough) {
  const MessageWatch watch(MessageWatch::Messages::Shown);
  EXPECT_FALSE(watch.Told());
  Tell("one");
  Tell("two");
  EXPECT_TRUE(watch.Told());
  EXPECT_EQ(watch.Message(), "one");
  EXPECT_THAT(Shown(), ElementsAre("one", "two"));
}

TEST_F(MessageWatchTest, HushesMessagesForAsLongAsItLives) {
  {
    const MessageWatch outer(MessageWatch::Messages::Shown);
    const MessageWatch inner(MessageWatch::Messages::Hushed);
    Tell("one");
    EXPECT_EQ(inner.Message(), "one");
    EXPECT_FALSE(outer.Told());
  }
  Tell("two");
  EXPECT_THAT(Shown(), ElementsAre("two"));
}

}  // namespace
}  // namespace zorlan
