#include "desktop/remark.h"

#include <algorithm>
#include <cmath>
#include <QBoxLayout>
#include <QFontMetricsF>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextDocument>

#include "render/fonts.h"
#include "render/qt_text.h"
#include "shell/settings.h"

namespace zorlan {
namespace {

constexpr double kPoints = 10.5;
constexpr int kEmptyColumns = 40, kEmptyLines = 3;  // of a page without text

/// Moves the help beside the form that it speaks of: to its right, below it, or to the right edge.
void MoveBeside(const FormArea& forms, QWidget& help, const QRect& form) {
  const QRect room = forms.viewport()->rect();
  const QPoint edge(room.width() - help.width(), form.top());
  for (const QPoint& corner : {form.topRight() + QPoint(1, 0), form.bottomLeft() + QPoint(0, 1), edge})
    if (room.contains(QRect(corner, help.size())) || corner == edge) {
      help.move(std::max(0, corner.x()),
                std::clamp(corner.y(), 0, std::max(0, room.height() - help.height())));
      return;
    }
}

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
  FormToShow<frmREMARK> page(forms, "frmREMARK", [] { return std::make_unique<frmREMARK>(); });
  WindowPlace kept;
  const bool first = page.IsNew() && !LoadWindowPlace("frmREMARK", kept);
  const Form* const asking = forms.Find(form);
  page->ShowPage(InputHelpOf(form, CurrentFormSetting()));
  frmREMARK* const help = page.Show();
  // The size is the page's, whatever size was kept; the place is where it was left.
  forms.Fit(help, FormArea::Fitting::Exact);
  if (first && asking != nullptr)
    MoveBeside(forms, *help->parentWidget(), asking->parentWidget()->geometry());
}

}  // namespace zorlan
