// make_manual OUTPUT.pdf CHAPTER.md...: the user's manual from its chapters. A chapter begins a page; a title
// page and the contents with page numbers stand in front.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <exception>
#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextTable>
#include <QUrl>
#include <vector>

#include "base/fault.h"
#include "base/text_file.h"
#include "render/fonts.h"
#include "render/qt_text.h"
#include "shell/documents_folder.h"

namespace zorlan {
namespace {

constexpr int kResolution = 1200;                             // of the file
constexpr double kDotsPerMm = 96 / 25.4;                      // of the layout
constexpr double kPageWidth = 210, kPageHeight = 297;         // mm
constexpr double kSide = 22, kTop = 24, kBottom = 22;         // margins, mm
constexpr double kPoints = 10, kHeadPoints[] = {18, 13, 11};  // text, headings of level 1 to 3
constexpr double kLowestHeading = 0.85;                       // of the page's height
constexpr double kPictureWidth = 130;                         // mm
const QColor kInk(0x1f, 0x4e, 0x79), kRule(0xb0, 0xb8, 0xc0), kShade(0xea, 0xef, 0xf4);

constexpr double Dots(double mm) {
  return mm * kDotsPerMm;
}

/// A face for what is painted in the units of the layout, whatever the file's resolution.
QFont PageFont(double points) {
  QFont font = LabelFont(points);
  font.setPixelSize(static_cast<int>(std::lround(points * 96 / 72)));
  return font;
}

/// A chapter's text. A line end between Japanese words is none: they have no blanks between them.
QString ChapterText(const QString& path) {
  QString text = ToQt(ReadBytes(FromQt(path)));
  static const QRegularExpression lineEnd(QStringLiteral("(?<=[^\\x00-\\x7F])\\n *(?=[^\\x00-\\x7F])"));
  static const QRegularExpression emptyCell(QStringLiteral("\\| *(?=\\|)"));
  text.replace(emptyCell, QStringLiteral("| \u3000 "));  // else it counts to its neighbour
  return text.replace(lineEnd, QString());
}

/// Whether a block holds a picture: its line is as high as that.
bool HasPicture(const QTextBlock& block) {
  for (auto piece = block.begin(); !piece.atEnd(); ++piece)
    if (piece.fragment().charFormat().isImageFormat()) return true;
  return false;
}

/// The text on pages, with the place of its headings.
class Book {
 public:
  struct Heading {
    QString text;
    int level = 1, page = 0;  // from 0
  };

  explicit Book(const QStringList& chapters) {
    document_.setDefaultFont(LabelFont(kPoints));
    document_.setDocumentMargin(0);
    document_.setUseDesignMetrics(true);
    QTextCursor end(&document_);
    for (const QString& chapter : chapters) AddChapter(end, chapter);
    document_.setPageSize(QSizeF(Dots(kPageWidth - 2 * kSide), Height()));
    KeepHeadingsWithTheirText();
    FindHeadings();
  }

  int Pages() const { return document_.pageCount(); }
  const std::vector<Heading>& Headings() const { return headings_; }

  void Paint(QPainter& painter, int page) {
    painter.save();
    painter.translate(Dots(kSide), Dots(kTop) - page * Height());
    document_.drawContents(&painter, QRectF(0, page * Height(), document_.pageSize().width(), Height()));
    painter.restore();
  }

 private:
  static double Height() { return std::floor(Dots(kPageHeight - kTop - kBottom)); }

  void AddChapter(QTextCursor& end, const QString& path) {
    QTextDocument chapter;
    chapter.setDefaultFont(LabelFont(kPoints));
    chapter.setMarkdown(ChapterText(path));
    chapter.setBaseUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath() + QLatin1Char('/')));
    DressBlocks(chapter);
    DressTables(chapter);
    DressPictures(chapter, QFileInfo(path).absoluteDir());
    if (end.position() > 0) end.insertBlock(QTextBlockFormat());
    const int first = end.blockNumber();
    end.insertFragment(QTextDocumentFragment(&chapter));
    QTextCursor begin(document_.findBlockByNumber(first));
    QTextBlockFormat format = chapter.begin().blockFormat();  // the first block keeps that of its place
    if (first > 0) format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    begin.setBlockFormat(format);
  }

  static void DressBlocks(QTextDocument& chapter) {
    for (QTextBlock block = chapter.begin(); block.isValid(); block = block.next()) {
      QTextCursor cursor(block);
      cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
      QTextBlockFormat format = block.blockFormat();
      QTextCharFormat letters;
      const int level = format.headingLevel();
      if (level > 0) {
        letters.setFont(LabelFont(kHeadPoints[std::min(level, 3) - 1]));
        letters.setFontWeight(QFont::Bold);
        letters.setForeground(kInk);
        format.setTopMargin(level == 1 ? 0 : Dots(6));
        format.setBottomMargin(Dots(2.5));
      } else {
        const bool code = format.hasProperty(QTextFormat::BlockCodeFence) || format.nonBreakableLines();
        letters.setFont(code ? FixedFont(kPoints - 1) : LabelFont(kPoints));
        if (code) format.setBackground(kShade);
        const bool inTable = cursor.currentTable() != nullptr;
        if (!HasPicture(block)) format.setLineHeight(130, QTextBlockFormat::ProportionalHeight);
        format.setBottomMargin(inTable || code ? 0 : Dots(1.6));
      }
      cursor.mergeCharFormat(letters);
      cursor.setBlockFormat(format);
    }
  }

  static void DressTables(QTextDocument& chapter) {
    for (QTextFrame* const frame : chapter.rootFrame()->childFrames()) {
      auto* const table = qobject_cast<QTextTable*>(frame);
      if (table == nullptr) continue;
      QTextTableFormat format = table->format();
      format.setBorder(1);
      format.setBorderBrush(kRule);
      format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
      format.setBorderCollapse(true);
      format.setCellPadding(Dots(1.1));
      format.setCellSpacing(0);
      format.setTopMargin(Dots(1.5));
      format.setBottomMargin(Dots(3.5));
      format.setHeaderRowCount(1);
      format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
      table->setFormat(format);
      for (int column = 0; column < table->columns(); ++column) {
        QTextTableCell cell = table->cellAt(0, column);
        QTextCharFormat head = cell.format();
        head.setBackground(kShade);
        cell.setFormat(head);
      }
    }
  }

  /// Pictures no wider than the text, framed by their own edges.
  static void DressPictures(QTextDocument& chapter, const QDir& folder) {
    for (QTextBlock block = chapter.begin(); block.isValid(); block = block.next())
      for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        QTextImageFormat picture = piece.fragment().charFormat().toImageFormat();
        if (!picture.isValid()) continue;
        const QString path = folder.absoluteFilePath(picture.name());
        const QSize size = QImage(path).size();
        if (size.isEmpty()) throw Fault(FromQt(path) + " can't be read");
        const double width = std::min(Dots(kPictureWidth), double(size.width()));
        picture.setName(path);
        picture.setWidth(width);
        picture.setHeight(width * size.height() / size.width());
        QTextCursor cursor(block);
        cursor.setPosition(piece.fragment().position());
        cursor.setPosition(piece.fragment().position() + piece.fragment().length(), QTextCursor::KeepAnchor);
        cursor.setCharFormat(picture);
      }
  }

  /// A heading near the foot of a page goes over to the next one.
  void KeepHeadingsWithTheirText() {
    for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
      if (block.blockFormat().headingLevel() < 2) continue;
      const double top = document_.documentLayout()->blockBoundingRect(block).top();
      if (std::fmod(top, Height()) < kLowestHeading * Height()) continue;
      QTextBlockFormat format = block.blockFormat();
      format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
      QTextCursor(block).setBlockFormat(format);
      document_.markContentsDirty(0, document_.characterCount());  // what follows moves along
    }
  }

  void FindHeadings() {
    for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
      const int level = block.blockFormat().headingLevel();
      if (level != 1 && level != 2) continue;
      const double top = document_.documentLayout()->blockBoundingRect(block).top();
      headings_.push_back({block.text(), level, static_cast<int>(top / Height())});
    }
  }

  QTextDocument document_;
  std::vector<Heading> headings_;
};

/// The pages in front of the book.
class Front {
 public:
  explicit Front(const Book& book) : book_(book) {
    const double room = Dots(kPageHeight - kTop - kBottom) - Dots(16);
    double used = 0;
    for (const Book::Heading& heading : book.Headings()) {
      const double step = Step(heading);
      if (pages_.empty() || used + step > room) {
        pages_.emplace_back();
        used = 0;
      }
      pages_.back().push_back(&heading);
      used += step;
    }
  }
  int Pages() const { return 1 + static_cast<int>(pages_.size()); }

  void PaintTitle(QPainter& painter) const {
    const double width = Dots(kPageWidth);
    const auto line = [&](double y, double points, const QString& text) {
      painter.setFont(PageFont(points));
      painter.drawText(QRectF(0, Dots(y), width, Dots(20)), Qt::AlignHCenter | Qt::AlignTop, text);
    };
    painter.setPen(kInk);
    line(90, 26, QStringLiteral("ＺＯＲＬＡＮ For Windows"));
    painter.setPen(Qt::black);
    line(108, 16, QStringLiteral("操作マニュアル"));
    line(122, 11, ToQt(VersionText()));
  }
  void PaintContents(QPainter& painter, int page) const {
    painter.setPen(kInk);
    painter.setFont(PageFont(kHeadPoints[0]));
    painter.drawText(QPointF(Dots(kSide), Dots(kTop + 6)), QStringLiteral("目次"));
    double y = Dots(kTop + 16);
    for (const Book::Heading* const heading : pages_[static_cast<std::size_t>(page)]) {
      y += Step(*heading);
      PaintEntry(painter, *heading, y);
    }
  }

 private:
  static double Step(const Book::Heading& heading) { return Dots(heading.level == 1 ? 6.4 : 4.3); }

  void PaintEntry(QPainter& painter, const Book::Heading& heading, double y) const {
    const QFont font = PageFont(heading.level == 1 ? 11 : kPoints);
    const double left = Dots(kSide + (heading.level == 1 ? 0 : 6)), right = Dots(kPageWidth - kSide);
    const QString number = QString::number(Pages() + heading.page + 1);
    const QFontMetricsF metrics(font);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(left, y), heading.text);
    painter.drawText(QPointF(right - metrics.horizontalAdvance(number), y), number);
    painter.setPen(QPen(kRule, 0.8, Qt::DotLine));
    const double from = left + metrics.horizontalAdvance(heading.text) + Dots(2);
    painter.drawLine(QPointF(from, y - 2), QPointF(right - Dots(10), y - 2));
  }

  const Book& book_;
  std::vector<std::vector<const Book::Heading*>> pages_;
};

void PaintNumber(QPainter& painter, int number) {
  painter.setPen(Qt::black);
  painter.setFont(PageFont(9));
  painter.drawText(QRectF(0, Dots(kPageHeight - 14), Dots(kPageWidth), Dots(8)), Qt::AlignHCenter,
                   QString::number(number));
}

void MakeManual(const QString& output, const QStringList& chapters) {
  Book book(chapters);
  const Front front(book);
  QPdfWriter writer(output);
  writer.setResolution(kResolution);
  writer.setTitle(QStringLiteral("ＺＯＲＬＡＮ For Windows 操作マニュアル"));
  writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
  QPainter painter(&writer);
  if (!painter.isActive()) throw Fault(FromQt(output) + " can't be written");
  painter.scale(kResolution / 96.0, kResolution / 96.0);
  front.PaintTitle(painter);
  for (int page = 0; page < front.Pages() - 1; ++page) {
    writer.newPage();
    front.PaintContents(painter, page);
    PaintNumber(painter, page + 2);
  }
  for (int page = 0; page < book.Pages(); ++page) {
    writer.newPage();
    book.Paint(painter, page);
    PaintNumber(painter, front.Pages() + page + 1);
  }
}

}  // namespace
}  // namespace zorlan

int main(int argc, char** argv) {
  using namespace zorlan;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() < 3) {
    std::fputs("usage: make_manual OUTPUT.pdf CHAPTER.md...\n", stderr);
    return 2;
  }
  try {
    if (!InstallFonts()) throw Fault("the font IPAGothic (fonts-ipafont-gothic) is missing");
    MakeManual(arguments.at(1), arguments.mid(2));
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "%s\n", fault.what());
    return 1;
  }
}
