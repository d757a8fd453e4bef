#include "desktop/hand_over.h"

#include <exception>
#include <QApplication>
#include <QThread>

#include "base/fault.h"
#include "base/text_file.h"
#include "desktop/busy.h"
#include "model/model_state.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

constexpr int kPatience = 3000, kLookEvery = 50;  // ms, of who hands over
constexpr int kLookAgain = 300;                   // ms, while the program has something else to do

std::string LetterPath() {
  return AppPath + "open.txt";
}

}  // namespace

bool HandOver(const std::string& deck) {
  const std::string letter = LetterPath();
  try {
    ReplaceBytes(letter, deck, Flush::No);  // UTF-8: a path may hold any character
    for (int waited = 0; waited < kPatience; waited += kLookEvery) {
      if (!FileExists(letter)) return true;
      QThread::msleep(kLookEvery);
    }
    RemoveFile(letter);
  } catch (const std::exception&) {
    // The tree can't be written: nobody will read it there.
  }
  return false;
}

HandOverWatch::HandOverWatch(QObject* parent) : QObject(parent) {
  watcher_.addPath(ToQt(AppPath));
  again_.setSingleShot(true);
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &HandOverWatch::Look);
  connect(&again_, &QTimer::timeout, this, &HandOverWatch::Look);
  again_.start(0);
}

void HandOverWatch::Look() {
  if (!FileExists(LetterPath())) return;
  if (IsBusy() || QApplication::activeModalWidget() != nullptr) {
    again_.start(kLookAgain);
    return;
  }
  QString deck;
  try {
    deck = ToQt(ReadBytes(LetterPath()));
    RemoveFile(LetterPath());
  } catch (const Fault&) {
    return;
  }
  emit arrived(deck);
}

}  // namespace zorlan
