// What the preview shows: the pages of a listing, or pages of figures.
#pragma once

#include <functional>
#include <optional>
#include <QSize>
#include <QString>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/figure_files.h"
#include "desktop/shown_file.h"
#include "output/text_pages.h"
#include "shell/figure_sheets.h"

class QPainter;

namespace zorlan {

class PreviewPages {
 public:
  PreviewPages() = default;
  virtual ~PreviewPages() = default;
  PreviewPages(const PreviewPages&) = delete;
  PreviewPages& operator=(const PreviewPages&) = delete;

  virtual QString Caption() const = 0;
  /// Puts the content on sheets by the printer settings in force.
  virtual void LayOut() = 0;
  virtual int Count() const = 0;
  virtual QSize Sheet() const = 0;  // page units (output/text_pages.h)
  /// Draws page `page`, from 0; the painter is in page units.
  virtual void Paint(QPainter& painter, int page) = 0;
  virtual std::string Pdf(const std::function<void(double share)>& pageDone) = 0;
  /// A name for a file of the pages, without its ending.
  virtual QString FileName() const = 0;
  /// A page as text; empty for one that has none.
  virtual QString Text(int page) const = 0;
  /// Whether the content has changed since it was read; it is read anew then.
  virtual bool Renew() { return false; }
  /// What there is to say of the content, such as why it has no page; empty for nothing.
  virtual QString Note() const { return {}; }

  // Figures alone:
  /// The kind of the first figure on a page.
  virtual std::optional<int> KindOn(int) const { return std::nullopt; }
  /// Writes a page as a DXF file; false when it can't be made.
  virtual bool WriteDxf(int, const std::string&) { return false; }
};

/// A PrintFlag's listing. A file that doesn't exist has no page.
class ListingPages final : public PreviewPages {
 public:
  ListingPages(int flag, const std::string& path);

  bool IsOf(int flag, const std::string& path) const {
    return flag == flag_ && path == file_.Path() && !path.empty();
  }
  QString Caption() const override;
  void LayOut() override;
  int Count() const override { return static_cast<int>(pages_.pages.size()); }
  QSize Sheet() const override { return {pages_.width, pages_.height}; }
  void Paint(QPainter& painter, int page) override;
  std::string Pdf(const std::function<void(double share)>& pageDone) override;
  QString FileName() const override;
  QString Text(int page) const override;
  bool Renew() override;

 private:
  void Read();

  int flag_;
  ShownFile file_;
  std::string text_;
  TextPages pages_;  // points into the text
};

/// Figures of the model in hand in the cells of their pages. They follow its tables and results.
class FigurePreview final : public PreviewPages {
 public:
  /// `figure` has the model and its results as they are now. `shown` is the part of each figure that a window
  /// of the screen shows; nothing: each whole.
  FigurePreview(Figure figure, std::vector<SelectedFigure> figures, int layout, std::optional<View> shown);

  QString Caption() const override;
  void LayOut() override;
  int Count() const override { return sheets_.PageCount(); }
  QSize Sheet() const override;
  void Paint(QPainter& painter, int page) override;
  std::string Pdf(const std::function<void(double share)>& pageDone) override;
  QString FileName() const override;
  QString Text(int) const override { return {}; }
  /// Without data that the figures can be drawn from there is no page, and a note says so.
  bool Renew() override;
  QString Note() const override { return note_; }
  std::optional<int> KindOn(int page) const override;
  bool WriteDxf(int page, const std::string& path) override;

 private:
  std::optional<std::string_view> ReadData();

  Figure figure_;
  FigureFiles files_;
  std::vector<SelectedFigure> chosen_;
  FigureSheets sheets_;  // of those chosen that the model has
  QString note_;
};

}  // namespace zorlan
