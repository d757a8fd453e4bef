#include "desktop/form.h"

#include <algorithm>
#include <exception>
#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QProxyStyle>
#include <QStatusBar>

#include "desktop/scroll_content.h"
#include "graphics/plot_target.h"
#include "render/qt_text.h"
#include "shell/projects.h"
#include "shell/settings.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

constexpr int kHintTime = 5000;  // ms: a line is read
constexpr QPoint kCascadeStart(1700, -250);
constexpr QPoint kCascadeStep(100, 250);
constexpr int kCascadeOffset = 28;     // pixels: a title bar
constexpr int kAtLeftEdge = 60;        // pixels: a form that begins within them stands at the edge
constexpr QSize kLeastForm(320, 240);  // of a form that must do with the room beside another one

/// A maximized form keeps its title bar: in the main window's frame it would change the caption, which is the
/// model's alone.
class FrameStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override {
    return hint == SH_Workspace_FillSpaceOnMaximize ? 1
                                                    : QProxyStyle::styleHint(hint, option, widget, result);
  }
};

/// A place moved into a room, and made smaller only where it is larger than the room.
QRect Within(const QRect& room, const QRect& place) {
  const QSize size = place.size().boundedTo(room.size());
  return {QPoint(std::clamp(place.x(), room.left(), room.left() + room.width() - size.width()),
                 std::clamp(place.y(), room.top(), room.top() + room.height() - size.height())),
          size};
}

/// The largest part of `room` beside, above or below `taken`.
QRect RoomBeside(const QRect& taken, const QRect& room) {
  const QRect parts[] = {
      QRect(QPoint(taken.right() + 1, room.top()), room.bottomRight()),
      QRect(room.topLeft(), QPoint(taken.left() - 1, room.bottom())),
      QRect(QPoint(room.left(), taken.bottom() + 1), room.bottomRight()),
      QRect(room.topLeft(), QPoint(room.right(), taken.top() - 1)),
  };
  const auto area = [](const QRect& part) {
    return part.width() < kLeastForm.width() || part.height() < kLeastForm.height()
               ? 0
               : part.width() * part.height();
  };
  const QRect* const best =
      std::ranges::max_element(parts, [&](const QRect& a, const QRect& b) { return area(a) < area(b); });
  return area(*best) > 0 ? *best : QRect();
}

Form* FormIn(const QMdiSubWindow* frame) {
  return qobject_cast<Form*>(frame->widget());
}

}  // namespace

/// A form's frame. It knows where the user wants it while it is neither maximized nor minimized: a place that
/// the program gave for want of room is nobody's wish.
class FormFrame : public QMdiSubWindow {
 public:
  using QMdiSubWindow::QMdiSubWindow;

  /// Where the user has put it; as far as it stands where the program did, what was wanted then.
  QRect WantedPlace() const {
    return {normal_.topLeft() == put_.topLeft() ? wanted_.topLeft() : normal_.topLeft(),
            normal_.size() == put_.size() ? wanted_.size() : normal_.size()};
  }
  void Put(const QRect& place, const QRect& wanted) {
    wanted_ = wanted;
    setGeometry(place);
    put_ = normal_ = geometry();
  }
  /// Puts it elsewhere for the sake of another form or of its content.
  void PutAside(const QRect& place) { Put(place, WantedPlace()); }

  /// Whether it is maximized because the form that was in front before was.
  bool IsCarried() const { return carried_; }
  void SetCarried(bool carried) { carried_ = carried; }

 protected:
  void moveEvent(QMoveEvent* event) override {
    QMdiSubWindow::moveEvent(event);
    NotePlace();
  }
  void resizeEvent(QResizeEvent* event) override {
    QMdiSubWindow::resizeEvent(event);
    NotePlace();
  }

 private:
  void NotePlace() {
    if (isVisible() && !isMaximized() && !isMinimized()) normal_ = geometry();
  }

  QRect normal_;        // its geometry
  QRect put_, wanted_;  // where the program put it last, and instead of what
  bool carried_ = false;
};

namespace {

/// Null of a form that isn't shown yet.
FormFrame* FrameOf(const Form* form) {
  return dynamic_cast<FormFrame*>(form->parentWidget());
}

}  // namespace

void ShowHint(QStatusBar& bar, const QString& text) {
  bar.showMessage(text, kHintTime);
}

Form::Form(const char* name) {
  setObjectName(QString::fromLatin1(name));
  setAttribute(Qt::WA_DeleteOnClose);
}

bool Form::CloseForm() {
  QWidget* const frame = parentWidget();
  return frame != nullptr && qobject_cast<QMdiSubWindow*>(frame) != nullptr ? frame->close() : close();
}

void Form::Unload() {
  unloading_ = true;
  CloseForm();
}

void Form::NoteEdit() {
  const Told now{IsChanged(), CanUndo(), CanRedo()};
  if (told_ == now) return;
  told_ = now;
  TheWindows().refresh();
}

bool Form::TakesEdits() const {
  return HasGrid() || IsTableForm(FromQt(objectName()));
}

bool Form::CanUndo() const {
  return TakesEdits();
}

bool Form::CanRedo() const {
  return CanUndo();
}

void Form::closeEvent(QCloseEvent* event) {
  event->setAccepted(unloading_ || Commit());
}

void Form::Edit(Command command) {
  auto* const box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  if (box == nullptr || !isAncestorOf(box)) return;
  switch (command) {
    case Command::Undo:
      return box->undo();
    case Command::Redo:
      return box->redo();
    case Command::Cut:
      return box->cut();
    case Command::Copy:
      return box->copy();
    case Command::Paste:
      return box->paste();
    default:
      return;
  }
}

void Form::Say(const QString& text) {
  if (auto* const main = qobject_cast<QMainWindow*>(window())) ShowHint(*main->statusBar(), text);
}

void Form::focusInEvent(QFocusEvent* event) {
  if (first_ != nullptr) first_->setFocus(event->reason());
}

void Form::TakeKeys() {
  if (first_ == nullptr) return;
  const QWidget* const last = focusWidget();
  const bool button = qobject_cast<const QAbstractButton*>(last) != nullptr &&
                      qobject_cast<const QAbstractButton*>(first_) == nullptr;
  const bool clicked = button && QGuiApplication::mouseButtons() != Qt::NoButton && last->underMouse();
  if (last == nullptr || last == this || !last->isVisible() || (button && !clicked)) setFocus();
}

void Form::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    CloseForm();
  else
    QWidget::keyPressEvent(event);
}

FormArea::FormArea(QWidget* parent)
    : QMdiArea(parent), cascade_(kCascadeStart), frameStyle_(std::make_unique<FrameStyle>()) {
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setActivationOrder(ActivationHistoryOrder);  // behind a form that closes comes the one before it
  connect(this, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* frame) {
    if (frame == nullptr || frame == front_) return;  // the program was left or has come back
    front_ = frame;
    GiveKeys();
  });
}

std::vector<Form*> FormArea::Forms() const {
  std::vector<Form*> forms;
  for (const QMdiSubWindow* const frame : subWindowList(QMdiArea::CreationOrder))
    if (Form* const form = FormIn(frame)) forms.push_back(form);
  return forms;
}

Form* FormArea::Find(const std::string& name) const {
  for (Form* const form : Forms())
    if (FromQt(form->objectName()) == name) return form;
  return nullptr;
}

std::vector<std::string> FormArea::Names() const {
  std::vector<std::string> names;
  for (const Form* const form : Forms()) names.push_back(FromQt(form->objectName()));
  return names;
}

void FormArea::BringToFront(Form* form) {
  auto* const frame = qobject_cast<QMdiSubWindow*>(form->parentWidget());
  if (frame->isMinimized()) frame->showNormal();
  setActiveSubWindow(frame);
  form->setFocus();
}

void FormArea::Show(std::unique_ptr<Form> made) {
  Qt::WindowFlags bar = Qt::SubWindow;  // with all its buttons
  if (made->KeepsItsSize()) bar |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
  auto* const frame = new FormFrame;
  Form* const form = made.release();
  frame->setWidget(form);
  addSubWindow(frame);
  frame->setWindowFlags(bar);  // behind the area, which adds the menu of the system with its icon
  frame->setAttribute(Qt::WA_DeleteOnClose);
  frame->setStyle(frameStyle_.get());
  frame->setWindowIcon(window()->windowIcon());
  frame->installEventFilter(this);
  connect(frame, &QMdiSubWindow::windowStateChanged, this,
          [this, frame](Qt::WindowStates before, Qt::WindowStates now) {
            if ((before ^ now) & Qt::WindowMaximized) NoteMaximized(frame, now.testFlag(Qt::WindowMaximized));
            if ((before ^ now) & (Qt::WindowMaximized | Qt::WindowMinimized)) GiveKeys();
          });
  ScrollWhereTooLarge(*form, RoomInFrame());
  Place(frame, FromQt(form->objectName()));
  frame->show();
  form->setFocus();
}

void FormArea::NoteMaximized(FormFrame* frame, bool maximized) {
  frame->SetCarried(maximized && frame != front_);
  // The toolkit hands the state on to whatever comes to the front: a form that keeps its size is put right as
  // soon as the toolkit has done with it.
  if (maximized && FormIn(frame)->KeepsItsSize())
    QMetaObject::invokeMethod(frame, &QWidget::showNormal, Qt::QueuedConnection);
}

void FormArea::GiveKeys() {
  // Behind the toolkit, which hands them to the first button of a frame that has been hidden for a moment.
  QMetaObject::invokeMethod(
      this,
      [this] {
        const QMdiSubWindow* const frame = activeSubWindow();
        if (frame == nullptr || frame->isMinimized()) return;
        if (Form* const form = FormIn(frame)) form->TakeKeys();
      },
      Qt::QueuedConnection);
}

QSize FormArea::RoomInFrame() const {
  const int border = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
  return viewport()->size() - QSize(2 * border, 2 * border + style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

void FormArea::Place(FormFrame* frame, const std::string& name) {
  const bool fixed = FormIn(frame)->KeepsItsSize();
  if (!fixed) cascade_ += kCascadeStep;
  WindowPlace place;
  const bool kept = LoadWindowPlace(name, place);
  const QSize size = frame->sizeHint();
  if (kept && fixed) {
    place.width = size.width();
    place.height = size.height();
  } else if (!kept) {
    const QPoint corner = fixed ? QPoint(0, 0) : cascade_ / kTwipsPerPixel;
    place = {corner.x(), corner.y(), size.width(), size.height(), false};
  }
  // A form that was left in a larger window, or beyond an edge, comes up whole; a new one beside the bar of
  // buttons, unless it needs that room too.
  const QRect beside = RoomToArrange();
  const bool fits = frame->minimumSizeHint().boundedTo(beside.size()) == frame->minimumSizeHint();
  const QRect room = kept || fixed || !fits ? viewport()->rect() : beside;
  QRect wanted(place.left, place.top, place.width, place.height);
  if (FormIn(frame)->NeedsItsSize()) wanted.setSize(wanted.size().expandedTo(size));
  frame->Put(Within(room, wanted), wanted);
  if (place.maximized) frame->setWindowState(Qt::WindowMaximized);
}

void FormArea::Fit(Form* form, Fitting fitting) {
  auto* const frame = FrameOf(form);
  if (frame == nullptr || frame->isMaximized() || frame->isMinimized()) return;
  QSize size = frame->sizeHint();
  if (fitting == Fitting::Grow) size = size.expandedTo(frame->size());
  frame->PutAside(Within(viewport()->rect(), QRect(frame->pos(), size)));
}

bool FormArea::ShowBeside(Form* form, Form* front) {
  FormFrame* const other = FrameOf(form);
  FormFrame* const kept = FrameOf(front);
  for (FormFrame* const frame : {other, kept})
    if (frame->isMinimized() || frame->isMaximized()) frame->showNormal();
  if (other->geometry().intersects(kept->geometry())) Part(other, kept);
  other->raise();
  setActiveSubWindow(kept);
  kept->raise();
  front->setFocus();
  return !other->geometry().intersects(kept->geometry());
}

void FormArea::Part(FormFrame* frame, FormFrame* kept) const {
  const QRect room = RoomToArrange();
  QRect place = kept->geometry();
  const auto turnTo = [&](const QRect& wanted) {
    if (RoomBeside(wanted, room).isEmpty()) return false;
    place = wanted;
    return true;
  };
  // Where it stands; else at the left edge; else at the top edge, half as high as the room.
  const QSize half(place.width(), std::min(place.height(), room.height() / 2));
  if (!turnTo(place) && !turnTo(QRect(room.topLeft(), place.size())) &&
      !turnTo(QRect(room.topLeft(), half.boundedTo(room.size()))))
    return;  // no room for both: the one in front hides the other
  kept->PutAside(place);
  const QRect beside = RoomBeside(place, room);
  frame->PutAside(Within(beside, frame->geometry()));
}

void FormArea::UnloadAll() {
  for (Form* const form : Forms()) {
    if (!form->BelongsToModel()) continue;
    form->Unload();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
}

void FormArea::RenewAll() {
  std::exception_ptr first;
  for (Form* const form : Forms()) {
    try {
      form->Renew();
    } catch (const std::exception&) {
      if (!first) first = std::current_exception();
    }
  }
  if (first) std::rethrow_exception(first);
}

bool FormArea::AnyChanged() const {
  return std::ranges::any_of(Forms(), [](const Form* form) { return form->IsChanged(); });
}

void FormArea::FollowState() {
  for (Form* const form : Forms()) form->FollowState();
}

bool FormArea::CloseOthers() {
  for (Form* const form : Forms()) {
    if (form->BelongsToModel()) continue;
    BringToFront(form);  // what it may ask about must be seen
    if (!form->CloseForm()) return false;
  }
  return true;
}

FormArea::~FormArea() {
  for (QMdiSubWindow* const frame : subWindowList()) delete frame;  // before the style that they draw with
}

void FormArea::ResetCascade() {
  cascade_ = kCascadeStart;
}

std::vector<QMdiSubWindow*> FormArea::FramesToArrange() const {
  std::vector<QMdiSubWindow*> frames;
  for (QMdiSubWindow* const frame : subWindowList(QMdiArea::StackingOrder))
    if (!frame->isMinimized() && FormIn(frame) != nullptr && !FormIn(frame)->KeepsItsSize())
      frames.insert(frames.begin(), frame);
  return frames;
}

QRect FormArea::RoomToArrange() const {
  QRect room = viewport()->rect();
  for (const QMdiSubWindow* const frame : subWindowList())
    if (FormIn(frame) != nullptr && FormIn(frame)->KeepsItsSize() && frame->x() < kAtLeftEdge)
      room.setLeft(std::max(room.left(), frame->geometry().right() + 1));
  return room.width() > viewport()->width() / 2 ? room : viewport()->rect();
}

void FormArea::CascadeForms() {
  const QRect room = RoomToArrange();
  std::vector<QMdiSubWindow*> frames = FramesToArrange();
  std::ranges::reverse(frames);
  // Each is as large as its content asks for, as far as those behind leave their title bars to be seen.
  const int steps = std::max(0, static_cast<int>(frames.size()) - 1);
  const QSize least = kLeastForm.boundedTo(room.size());
  const QSize most = (room.size() - kCascadeOffset * QSize(steps, steps)).expandedTo(least);
  QPoint corner = room.topLeft();
  for (QMdiSubWindow* const frame : frames) {
    frame->showNormal();
    const QSize size = frame->sizeHint().boundedTo(most);
    if (!room.contains(QRect(corner, size))) corner = room.topLeft();
    frame->setGeometry(QRect(corner, size));
    corner += QPoint(kCascadeOffset, kCascadeOffset);
  }
}

void FormArea::TileForms(Qt::Orientation along) {
  const QRect room = RoomToArrange();
  const std::vector<QMdiSubWindow*> frames = FramesToArrange();
  const int count = static_cast<int>(frames.size());
  for (int i = 0; i < count; ++i) {
    QMdiSubWindow* const frame = frames[static_cast<std::size_t>(i)];
    frame->showNormal();
    if (along == Qt::Vertical)
      frame->setGeometry(room.left(), room.top() + room.height() * i / count, room.width(),
                         room.height() / count);
    else
      frame->setGeometry(room.left() + room.width() * i / count, room.top(), room.width() / count,
                         room.height());
  }
}

void FormArea::resizeEvent(QResizeEvent* event) {
  QMdiArea::resizeEvent(event);
  for (Form* const form : Forms()) {
    if (!form->KeepsItsSize()) continue;
    if (ScrollWhereTooLarge(*form, RoomInFrame())) Fit(form, Fitting::Exact);
  }
}

bool FormArea::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Close)
    if (auto* const frame = dynamic_cast<FormFrame*>(watched))
      if (const Form* const form = FormIn(frame)) {
        const std::string name = FromQt(form->objectName());
        const QRect place = frame->WantedPlace();
        WindowPlace before;
        const bool maximized =
            frame->IsCarried() ? LoadWindowPlace(name, before) && before.maximized : frame->isMaximized();
        if (!frame->isMinimized())
          SaveWindowPlace(name, {place.x(), place.y(), place.width(), place.height(), maximized});
      }
  return QMdiArea::eventFilter(watched, event);
}

}  // namespace zorlan
