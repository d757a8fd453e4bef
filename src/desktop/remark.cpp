#include "desktop/remark.h"

#include <algorithm>
#include <cmath>
#include <QBoxLayout>
#include <QFontMetricsF>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextDocument>

#include "render/fonts.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

constexpr double kPoints = 10.5;
constexpr int kEmptyColumns = 40, kEmptyLines = 3;  // of a page without text

}  // namespace

frmREMARK::frmREMARK() : Form("frmREMARK") {
  text_ = new QPlainTextEdit;
  text_->setObjectName(QStringLiteral("text"));
  text_->setReadOnly(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  text_->setFont(FixedFont(kPoints));
  text_->setFrameShape(QFrame::NoFrame);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(text_);
  SetFirst(text_);
}

void frmREMARK::ShowPage(const InputHelp& help) {
  QStringList lines;
  for (const std::string& line : help.lines) lines << ToQt(line);
  setWindowTitle(ToQt(help.caption));
  text_->setPlainText(lines.join(QLatin1Char('\n')));
  columns_ = help.width;
  updateGeometry();
}

QSize frmREMARK::sizeHint() const {
  const QFontMetricsF metrics(text_->font());
  const double margins = 2 * text_->document()->documentMargin();
  const int columns = columns_ > 0 ? columns_ : kEmptyColumns;
  // One line to spare: the box takes a last line that touches its edge for one that is cut.
  const int lines = 1 + (columns_ > 0 ? text_->document()->blockCount() : kEmptyLines);
  return {static_cast<int>(std::ceil(metrics.horizontalAdvance(QLatin1Char('0')) * columns + margins)),
          static_cast<int>(std::ceil(metrics.lineSpacing()) * lines + margins)};
}

void OpenInputHelp(FormArea& forms, const std::string& form) {
  auto* help = qobject_cast<frmREMARK*>(forms.Find("frmREMARK"));
  if (help == nullptr) help = new frmREMARK;
  help->ShowPage(InputHelpOf(form, CurrentFormSetting()));
  forms.Show(help);
  // The size is the page's, whatever size was kept; the place is where it was left, moved into the frame.
  auto* const frame = qobject_cast<QMdiSubWindow*>(help->parentWidget());
  if (frame == nullptr || frame->isMaximized()) return;
  const QSize room = forms.viewport()->size();
  const QSize size = frame->sizeHint().boundedTo(room);
  const QPoint corner(std::clamp(frame->x(), 0, std::max(0, room.width() - size.width())),
                      std::clamp(frame->y(), 0, std::max(0, room.height() - size.height())));
  frame->setGeometry(QRect(corner, size));
}

}  // namespace zorlan
