// The page preview: the pages of a listing, printing, PDF, clipboard.
#pragma once

#include <string>

#include "desktop/form.h"
#include "desktop/page_view.h"
#include "desktop/shown_file.h"
#include "output/text_pages.h"
#include "shell/settings.h"

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace zorlan {

class frmPrnText : public Form {
  Q_OBJECT
 public:
  explicit frmPrnText(const SystemPrinters& printers);

  /// Shows the pages of a PrintFlag's listing. A file that doesn't exist shows an empty preview. The listing
  /// that is already shown stays at its page.
  void ShowListing(int flag, const std::string& path);
  void Renew() override;

  /// Lays the listing out by the printer settings as they are now.
  void LayOut(PageView::Place place = PageView::Place::Kept);

  QSize sizeHint() const override;

 private:
  void Build();
  void ReadFile();
  void SetZoomOf(int row);
  void Print();
  void WritePdf();
  void CopyPage();
  void SetUpPrinter();

  const SystemPrinters& printers_;
  int flag_ = 0;
  ShownFile file_;
  std::string text_;
  TextPages pages_;
  PageView* view_;
  QComboBox* zoom_;
  QSpinBox* page_;
  QLabel* count_;
  QPushButton *print_, *pdf_, *copy_;
};

}  // namespace zorlan
