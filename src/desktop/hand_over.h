// A second start of the program hands its deck to the one that runs: they share a tree of folders, and only
// one may work in it.
#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>
#include <string>

namespace zorlan {

/// Leaves a deck's path (empty: none) for the running program and waits until it has taken it. False: nobody
/// took it.
bool HandOver(const std::string& deck);

/// The running program's side.
class HandOverWatch : public QObject {
  Q_OBJECT
 public:
  /// Watches the program's tree (AppPath). What lies there already arrives once events run.
  explicit HandOverWatch(QObject* parent);

 signals:
  /// Another start was asked for; `deck` is empty when it had none.
  void arrived(const QString& deck);

 private:
  /// Takes the letter, if there is one and nothing else to do. One that can't be taken stays: who hands over
  /// tells the user.
  void Look();

  QFileSystemWatcher watcher_;
  QTimer again_;
};

}  // namespace zorlan
