// The page preview: the pages of a listing, printing, PDF, clipboard.
#pragma once

#include <string>

#include "desktop/form.h"
#include "output/text_pages.h"
#include "shell/settings.h"

class QComboBox;
class QLabel;
class QPrinter;
class QPushButton;
class QSpinBox;

namespace zorlan {

class PageView;

class frmPrnText : public Form {
  Q_OBJECT
 public:
  explicit frmPrnText(const SystemPrinters& printers);

  /// Shows the pages of a PrintFlag's listing. A file that doesn't exist shows an empty preview.
  void ShowListing(int flag, const std::string& path);

  /// Lays the listing out by the printer settings as they are now.
  void LayOut();

  QSize sizeHint() const override;

 private:
  void Build();
  void SetZoomOf(int row);
  void Print();
  void PrintOn(QPrinter& printer);
  void WritePdf();
  void CopyPage();
  void SetUpPrinter();

  const SystemPrinters& printers_;
  int flag_ = 0;
  std::string path_, text_;
  TextPages pages_;
  PageView* view_;
  QComboBox* zoom_;
  QSpinBox* page_;
  QLabel* count_;
  QPushButton *print_, *pdf_, *copy_;
};

}  // namespace zorlan
