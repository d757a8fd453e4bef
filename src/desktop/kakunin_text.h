// The text reader: a listing on the screen, with search, zoom and saving.
#pragma once

#include <QString>
#include <QTimer>
#include <string>

#include "desktop/form.h"
#include "desktop/shown_file.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace zorlan {

class frmKakuninText : public Form {
  Q_OBJECT
 public:
  frmKakuninText();

  /// Shows the listing of a PrintFlag; a file that doesn't exist is an empty text, one that can't be read
  /// too, with the reason. The listing that is already shown keeps its place in the window.
  void ShowListing(int flag, const std::string& path);
  void Renew() override;

  QSize sizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;  // Ctrl+wheel zooms, a double click leads on

 private:
  /// Reads the file; the text stays where it was in the window, or begins at its top.
  void Load(bool keepPlace);
  /// Shows a text, and what there is to say of it: nothing, or why it is empty.
  void ShowText(const QString& text, const QString& note, bool keepPlace);
  /// Brings the next lines of the text into the box.
  void LoadLines(int count);
  void Search(bool backwards);
  /// Saves what is shown, byte by byte as it stands in the file.
  void Save();
  void SetZoom(double points);
  /// From the message under the cursor to the row that it speaks of.
  void ShowRowOfMessage();

  ShownFile file_;
  bool messages_ = false;  // it is the input check's list
  QString whole_;          // the text
  qsizetype loaded_ = 0;   // how much of it is in the box
  QTimer loadMore_;        // a long listing comes in piece by piece, so its first page stands at once
  double points_;
  QLabel *heading_, *note_;
  QPlainTextEdit* text_;
  QLineEdit* search_;
  QLabel* found_;
};

}  // namespace zorlan
