// The child windows of the main window: what they share, and the area that they stand in.
#pragma once

#include <memory>
#include <optional>
#include <QMdiArea>
#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

#include "shell/menu.h"

class QMdiSubWindow;
class QStatusBar;
class QStyle;

namespace zorlan {

/// Shows a text in the status bar for the time that it takes to read.
void ShowHint(QStatusBar& bar, const QString& text);

/// A child window. Its name, such as "frmPrnText", is its object name and the key of its place.
class Form : public QWidget {
  Q_OBJECT
 public:
  explicit Form(const char* name);

  /// Commits what was entered and closes. False: it was refused, and the form stays.
  bool CloseForm();
  /// Closes and asks nothing.
  void Unload();

  /// A form that keeps its size, such as a bar of buttons: it stands at the left edge, and the others are
  /// arranged beside it.
  virtual bool KeepsItsSize() const { return false; }

  /// A form that is of no use smaller than its content: it comes up no smaller, however it was left.
  virtual bool NeedsItsSize() const { return false; }

  /// A grid that the Edit menu works on.
  virtual bool HasGrid() const { return false; }

  /// Whether the form goes with the model in hand. One that doesn't stays when another model comes, and is
  /// asked to close at the program's end.
  virtual bool BelongsToModel() const { return true; }

  /// Called behind every command: a form that shows a file shows it as it is now.
  virtual void Renew() {}

  /// The keys go to its first widget, unless a box or list of the form has them.
  void TakeKeys();

  /// Whether it holds what isn't committed to the model's tables.
  virtual bool IsChanged() const { return false; }

  /// Whether the Edit menu has something to work on.
  bool TakesEdits() const;

  /// Whether its edits have a step to take back, or one that was taken back. A box of text knows it alone.
  virtual bool CanUndo() const;
  virtual bool CanRedo() const;

  /// Called whenever the state of the model in hand may have changed: what the form says of it follows.
  virtual void FollowState() {}

  /// An entry of the Edit menu. A form without a grid does it in the box that has the focus.
  virtual void Edit(Command command);

 protected:
  /// What must hold before the form may close; it has told the user why not.
  virtual bool Commit() { return true; }

  /// Tells in the status bar, for a while, what can't be seen: what succeeded, or what a cell takes.
  void Say(const QString& text);

  /// What takes the keys when the form comes to the front. (A focus proxy would hold Tab there.)
  void SetFirst(QWidget* widget) { first_ = widget; }

  /// To be called behind every edit: the windows tell at once that there is something to commit.
  void NoteEdit();

  void closeEvent(QCloseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;  // Esc closes

 private:
  QWidget* first_ = nullptr;
  bool unloading_ = false;
  struct Told {  // as the windows were told
    bool changed = false, undo = false, redo = false;
    bool operator==(const Told&) const = default;
  };
  std::optional<Told> told_;
};

class FormFrame;

/// The area of the child windows.
class FormArea : public QMdiArea {
  Q_OBJECT
 public:
  explicit FormArea(QWidget* parent = nullptr);
  ~FormArea() override;

  /// The open form of this name; null if there is none.
  Form* Find(const std::string& name) const;
  /// Names of the open forms in the order of their opening.
  std::vector<std::string> Names() const;

  /// Takes over a new form and shows it where it was left last time, or else at the next place of the cascade
  /// and as large as its content asks for. (FormToShow makes one that isn't open.)
  void Show(std::unique_ptr<Form> form);
  /// An open form comes to the front.
  void BringToFront(Form* form);
  enum class Fitting { Grow, Exact };
  /// A form whose content has changed becomes as large as it asks for (Grow: no smaller than it is), as far
  /// as the area has room, and is moved into it.
  void Fit(Form* form, Fitting fitting);
  /// Shows a form beside the one in front, which keeps the keys: neither hides the other as far as there is
  /// room for both. False: there is none, and it stands behind.
  bool ShowBeside(Form* form, Form* front);
  /// Unloads the forms of the model in hand.
  void UnloadAll();
  /// Closes the others; false as soon as one refuses.
  bool CloseOthers();
  /// Renews every form, also behind one that fails. Throws the first fault then.
  void RenewAll();
  /// Whether one of them holds what isn't committed.
  bool AnyChanged() const;
  void FollowState();

  void ResetCascade();
  void CascadeForms();
  void TileForms(Qt::Orientation along);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::vector<Form*> Forms() const;
  /// The frames to be arranged, the one in front first, and the room for them.
  std::vector<QMdiSubWindow*> FramesToArrange() const;
  QRect RoomToArrange() const;
  QSize RoomInFrame() const;  // for a form
  /// The form in front takes the keys, when it has come there or its frame has changed its size.
  void GiveKeys();
  void NoteMaximized(FormFrame* frame, bool maximized);
  void Place(FormFrame* frame, const std::string& name);
  /// Gives two frames places that don't overlap, if there is room for both.
  void Part(FormFrame* frame, FormFrame* kept) const;

  QPointer<QMdiSubWindow> front_;
  QPoint cascade_;  // of the form opened last, in twips
  std::unique_ptr<QStyle> frameStyle_;
};

/// The form of a name: the open one, or a new one that goes again unless it comes to be shown.
template <class FormClass>
class FormToShow {
 public:
  template <class Make>
  FormToShow(FormArea& area, const std::string& name, Make make)
      : area_(area), form_(dynamic_cast<FormClass*>(area.Find(name))) {
    if (form_ != nullptr) return;
    made_ = make();
    form_ = made_.get();
  }

  bool IsNew() const { return made_ != nullptr; }
  FormClass* operator->() const { return form_; }
  /// In front from now on, and the area's.
  FormClass* Show() {
    if (IsNew())
      area_.Show(std::move(made_));
    else
      area_.BringToFront(form_);
    return form_;
  }

 private:
  FormArea& area_;
  std::unique_ptr<FormClass> made_;
  FormClass* form_;
};

}  // namespace zorlan
