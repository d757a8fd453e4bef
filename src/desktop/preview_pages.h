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
  /// Reads the content anew if it has changed since it was read, and answers whether it has. Content that
  /// can't be read has no page, and the note says why; it is tried again the next time.
  bool Renew();
  /// What there is to say of the content, such as why it has no page; empty for nothing.
  const QString& Note() const { return note_; }

  // Figures alone:
  /// The number that a page is called by.
  virtual int Number(int page) const { return page + 1; }
  /// The kind of the first figure on a page.
  virtual std::optional<int> KindOn(int) const { return std::nullopt; }
  /// Writes a page as a DXF file; false when it can't be made.
  virtual bool WriteDxf(int, const std::string&) { return false; }

 protected:
  virtual bool HasChanged() const { return false; }
  /// Reads the content and answers the note.
  virtual QString Read() { return {}; }
  /// It has no page until it has been read, and counts as changed.
  virtual void Clear() {}

 private:
  QString note_;
};

/// A PrintFlag's listing, read by the first Renew. A file that doesn't exist has no page.
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

 protected:
  bool HasChanged() const override;
  QString Read() override;
  void Clear() override;

 private:
  int flag_;
  ShownFile file_;
  std::string text_;
  bool read_ = false, there_ = false;  // it has been read; there was a file
  TextPages pages_;                    // points into the text
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
  int Number(int page) const override { return sheets_.firstPage + page; }
  std::optional<int> KindOn(int page) const override;
  bool WriteDxf(int page, const std::string& path) override;

 protected:
  bool HasChanged() const override { return files_.Changed(); }
  /// Without data that the figures can be drawn from there is no page, and the note says so.
  QString Read() override;
  void Clear() override;

 private:
  std::optional<std::string_view> ReadData();

  Figure figure_;
  FigureFiles files_;
  std::vector<SelectedFigure> chosen_;
  FigureSheets sheets_;  // of those chosen that the model has
};

}  // namespace zorlan
