// The page preview: pages of a listing or of figures; printing, PDF, DXF, clipboard.
#pragma once

#include <memory>
#include <string>

#include "desktop/form.h"
#include "desktop/page_view.h"
#include "desktop/preview_pages.h"
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
  ~frmPrnText() override;  // the choice of figures that was handed over goes with its preview

  /// Shows the pages of a PrintFlag's listing. A file that doesn't exist shows an empty preview. The listing
  /// that is already shown stays at its page.
  void ShowListing(int flag, const std::string& path);
  /// Shows pages of figures.
  void ShowFigures(std::unique_ptr<FigurePreview> pages);
  void Renew() override;

  /// Lays the pages out by the printer settings as they are now.
  void LayOut(PageView::Place place = PageView::Place::Kept);

  /// The display options have changed.
  void FollowOptions();

  QSize sizeHint() const override;

 signals:
  void optionsAsked(int kind);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using Action = void (frmPrnText::*)();
  /// What a key does in the preview: copies, prints; null for any other key.
  static Action ActionOf(const QKeyEvent& key);
  void Build();
  int Count() const { return pages_ == nullptr ? 0 : pages_->Count(); }
  void ShowPages(std::unique_ptr<PreviewPages> pages, PageView::Place place);
  void SetZoomOf(int row);
  void Print();
  void WritePdf();
  void WriteDxf();
  void SayWritten(const QString& file);
  void CopyPage();
  void SetUpPrinter();

  const SystemPrinters& printers_;
  std::unique_ptr<PreviewPages> pages_;
  PageView* view_;
  QComboBox* zoom_;
  QSpinBox* page_;
  QLabel *count_, *note_;
  QPushButton *print_, *pdf_, *dxf_, *options_, *copy_;
};

}  // namespace zorlan
