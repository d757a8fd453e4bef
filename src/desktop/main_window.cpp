#include "desktop/main_window.h"

#include <algorithm>
#include <array>
#include <exception>
#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QToolButton>
#include <QUrl>

#include "base/host.h"
#include "desktop/busy.h"
#include "desktop/csv_file.h"
#include "desktop/figure_windows.h"
#include "desktop/form.h"
#include "desktop/hand_over.h"
#include "desktop/icons.h"
#include "desktop/input_menu.h"
#include "desktop/main_menu.h"
#include "desktop/one_row_forms.h"
#include "desktop/option_dialog.h"
#include "desktop/printer_set.h"
#include "desktop/prn_text.h"
#include "desktop/remark.h"
#include "desktop/section_table_window.h"
#include "desktop/shell_windows.h"
#include "desktop/status_fields.h"
#include "desktop/table_window.h"
#include "desktop/to_zor2.h"
#include "desktop/version_form.h"
#include "model/model_state.h"
#include "render/qt_text.h"
#include "shell/commands.h"
#include "shell/model_status.h"
#include "shell/project_copies.h"
#include "shell/projects.h"
#include "shell/recent_models.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

constexpr std::string_view kPlaceName = "frmMain";
constexpr int kTitleBar = 30;      // pixels above the window's own area
constexpr int kMessageRoom = 240;  // pixels of the status bar that explain what is under the hand

void SetUpPrinter(MainWindow& window) {
  if (frmPrinterSet(window.Printers(), &window).exec() != QDialog::Accepted) return;
  if (auto* const preview = qobject_cast<frmPrnText*>(window.Forms().Find("frmPrnText"))) preview->LayOut();
}

/// The form in front does it.
template <Command command>
void EditInFront(MainWindow& window) {
  const QMdiSubWindow* const front = window.Forms().activeSubWindow();
  if (auto* const form = front == nullptr ? nullptr : qobject_cast<Form*>(front->widget()))
    form->Edit(command);
}

template <Command command>
void OpenTable(MainWindow& window) {
  OpenTableWindow(window, TableFormOf(command));
}

/// The name of the child window in front; empty if there is none.
std::string FrontForm(const FormArea& forms) {
  const QMdiSubWindow* const front = forms.activeSubWindow();
  return front == nullptr || front->widget() == nullptr ? std::string()
                                                        : FromQt(front->widget()->objectName());
}

/// Null if there is none.
const Form* FormInFront(const FormArea& forms) {
  const QMdiSubWindow* const front = forms.activeSubWindow();
  return front == nullptr ? nullptr : qobject_cast<const Form*>(front->widget());
}

template <SheetKind kind>
void OpenSheet(MainWindow& window) {
  OpenSectionTable(window, kind);
}

void OpenOneRow(MainWindow& window, Command command) {
  OpenOneRowForm(window.Forms(), TableFormOf(command));
}

struct CommandRow {
  Command command;
  std::string_view routine;  // for the report of an error
  void (*run)(MainWindow& window);
};

/// Every command, and what it runs.
constexpr std::array kCommands = {
    CommandRow{Command::New, "NewModel", [](MainWindow&) { NewModel(); }},
    CommandRow{Command::Open, "OpenModel", [](MainWindow&) { OpenModel(); }},
    CommandRow{Command::Overwrite, "OverwriteModel", [](MainWindow&) { OverwriteModel(); }},
    CommandRow{Command::SaveAs, "SaveModelAs", [](MainWindow&) { SaveModelAs(); }},
    CommandRow{Command::Delete, "DeleteModel", [](MainWindow&) { DeleteModel(); }},
    CommandRow{Command::BackUp, "BackUpProject", [](MainWindow&) { BackUpProject(); }},
    CommandRow{Command::Restore, "RestoreProject", [](MainWindow&) { RestoreProject(); }},
    CommandRow{Command::DeleteProject, "DeleteProject", [](MainWindow&) { DeleteProject(); }},
    CommandRow{Command::Convert, "ToZOR2", [](MainWindow& window) { ToZOR2(&window).exec(); }},
    CommandRow{Command::PrinterSetUp, "frmPrinterSet", [](MainWindow& window) { SetUpPrinter(window); }},
    CommandRow{Command::PrintInput, "PrintInputList", [](MainWindow&) { PrintInputList(); }},
    CommandRow{Command::Exit, "LeaveProgram", [](MainWindow& window) { window.Leave(); }},
    CommandRow{Command::Undo, "EditUndo", EditInFront<Command::Undo>},
    CommandRow{Command::Redo, "EditRedo", EditInFront<Command::Redo>},
    CommandRow{Command::Cut, "EditCut", EditInFront<Command::Cut>},
    CommandRow{Command::Copy, "EditCopy", EditInFront<Command::Copy>},
    CommandRow{Command::Paste, "EditPaste", EditInFront<Command::Paste>},
    CommandRow{Command::InsertRow, "EditInsertRow", EditInFront<Command::InsertRow>},
    CommandRow{Command::DeleteRow, "EditDeleteRow", EditInFront<Command::DeleteRow>},
    CommandRow{Command::Assign, "EditAssign", EditInFront<Command::Assign>},
    CommandRow{Command::Add, "EditAdd", EditInFront<Command::Add>},
    CommandRow{Command::FindFault, "EditFindFault", EditInFront<Command::FindFault>},
    CommandRow{Command::Node, "InpNODE", OpenTable<Command::Node>},
    CommandRow{Command::Element, "InpELEM", OpenTable<Command::Element>},
    CommandRow{Command::Section, "InpSECT", OpenTable<Command::Section>},
    CommandRow{Command::NodalLoad, "InpPLOD", OpenTable<Command::NodalLoad>},
    CommandRow{Command::ElementLoad, "InpELOD", OpenTable<Command::ElementLoad>},
    CommandRow{Command::CmqLoad, "InpCLOD", OpenTable<Command::CmqLoad>},
    CommandRow{Command::TemperatureLoad, "InpTLOD", OpenTable<Command::TemperatureLoad>},
    CommandRow{Command::Spring, "InpSPRG", OpenTable<Command::Spring>},
    CommandRow{Command::ForcedDisplacement, "InpSPEC", OpenTable<Command::ForcedDisplacement>},
    CommandRow{Command::RigidZone, "InpRIGD", OpenTable<Command::RigidZone>},
    CommandRow{Command::Magnification, "InpALFA", OpenTable<Command::Magnification>},
    CommandRow{Command::SameDisplacement, "InpDISP", OpenTable<Command::SameDisplacement>},
    CommandRow{Command::Title, "InpTITL", [](MainWindow& window) { OpenOneRow(window, Command::Title); }},
    CommandRow{Command::SubTitle, "InpSUBT",
               [](MainWindow& window) { OpenOneRow(window, Command::SubTitle); }},
    CommandRow{Command::Control, "InpCONT", [](MainWindow& window) { OpenOneRow(window, Command::Control); }},
    CommandRow{Command::Unit, "InpUNIT", [](MainWindow& window) { OpenOneRow(window, Command::Unit); }},
    CommandRow{Command::InputHelp, "frmREMARK",
               [](MainWindow& window) { OpenInputHelp(window.Forms(), FrontForm(window.Forms())); }},
    CommandRow{Command::Check, "CheckInput", [](MainWindow&) { CheckInput(); }},
    CommandRow{Command::ModelFigure, "Model", [](MainWindow& window) { OpenFigure(window, kModelFigure); }},
    CommandRow{Command::Analyse, "AnalyseModel", [](MainWindow&) { AnalyseModel(); }},
    CommandRow{Command::ReadListing, "ShowAnalysisListing", [](MainWindow&) { ShowAnalysisListing(); }},
    CommandRow{Command::PrintListing, "PrintAnalysisListing", [](MainWindow&) { PrintAnalysisListing(); }},
    CommandRow{Command::WriteCsv, "frmCsvFile", [](MainWindow& window) { frmCsvFile(&window).exec(); }},
    CommandRow{Command::DesignSteel, "DesignSteel", [](MainWindow&) { DesignSteel(); }},
    CommandRow{Command::DesignConcrete, "DesignConcrete", [](MainWindow&) { DesignConcrete(); }},
    CommandRow{Command::DesignTimber, "DesignTimber", [](MainWindow&) { DesignTimber(); }},
    CommandRow{Command::PrintSteelDesign, "ShowText",
               [](MainWindow&) { ShowText(kPrintSteelDesign, /*preview=*/true); }},
    CommandRow{Command::PrintConcreteDesign, "ShowText",
               [](MainWindow&) { ShowText(kPrintConcreteDesign, /*preview=*/true); }},
    CommandRow{Command::SteelFigure, "Model",
               [](MainWindow& window) { OpenFigure(window, kSteelRatioFigure); }},
    CommandRow{Command::ConcreteFigure, "Model",
               [](MainWindow& window) { OpenFigure(window, kRcRatioFigure); }},
    CommandRow{Command::LoadFigure, "Model", [](MainWindow& window) { OpenFigure(window, kLoadCheck); }},
    CommandRow{Command::DisplacementFigure, "Model",
               [](MainWindow& window) { OpenFigure(window, kDisplacementFigure); }},
    CommandRow{Command::NormalFigure, "Model", [](MainWindow& window) { OpenFigure(window, kAxialFigure); }},
    CommandRow{Command::ShearFigure, "Model", [](MainWindow& window) { OpenFigure(window, kShearFigure); }},
    CommandRow{Command::MomentFigure, "Model", [](MainWindow& window) { OpenFigure(window, kMomentFigure); }},
    CommandRow{Command::PrintFigures, "frmSelctLC", [](MainWindow& window) { PrintFigures(window); }},
    CommandRow{Command::DisplayOptions, "frmModelOption",
               [](MainWindow& window) { OpenOptions(window, OptionSet::Model); }},
    CommandRow{Command::ResultOptions, "frmAnalysisOption",
               [](MainWindow& window) { OpenOptions(window, OptionSet::Analysis); }},
    CommandRow{Command::TableH, "frmEditKozaiTable", OpenSheet<SheetKind::H>},
    CommandRow{Command::TableBox, "frmEditKozaiTable", OpenSheet<SheetKind::Box>},
    CommandRow{Command::TablePipe, "frmEditKozaiTable", OpenSheet<SheetKind::Pipe>},
    CommandRow{Command::TableMizo, "frmEditKozaiTable", OpenSheet<SheetKind::Channel>},
    CommandRow{Command::TableYama, "frmEditKozaiTable", OpenSheet<SheetKind::Angle>},
    CommandRow{Command::TimberGrades, "frmEditMokuzaiTable", OpenSheet<SheetKind::Grades>},
    CommandRow{Command::TimberSections, "frmEditMokuzaiTable", OpenSheet<SheetKind::TimberSections>},
    CommandRow{Command::Cascade, "CascadeForms", [](MainWindow& window) { window.Forms().CascadeForms(); }},
    CommandRow{Command::TileHorizontal, "TileForms",
               [](MainWindow& window) { window.Forms().TileForms(Qt::Vertical); }},
    CommandRow{Command::TileVertical, "TileForms",
               [](MainWindow& window) { window.Forms().TileForms(Qt::Horizontal); }},
    CommandRow{Command::Manual, "ShowManual", [](MainWindow& window) { ShowManual(window.Install()); }},
    CommandRow{Command::Version, "frmVersion", [](MainWindow& window) { frmVersion(&window).exec(); }},
};

/// Asks before an exit that a refused table, or a save dialog that was cancelled, would turn into a loss.
bool AgreesToLoss() {
  return TheHost().question("保存していない入力内容があります\n破棄して終了してよろしいですか？",
                            kApplicationTitle, Buttons::YesNo) == Answer::Yes;
}

/// A place as it was left; one that is larger than the screen, which has another scale now, is made to fit.
QRect WithinScreen(const QRect& place, const QRect& screen) {
  if (place.width() <= screen.width() && place.height() <= screen.height()) return place;
  const QRect room = screen.adjusted(0, kTitleBar, 0, 0);
  const QSize size = place.size().boundedTo(room.size());
  return {QPoint(std::clamp(place.x(), room.left(), room.left() + room.width() - size.width()),
                 std::clamp(place.y(), room.top(), room.top() + room.height() - size.height())),
          size};
}

/// The deck that is dragged over the window; empty for anything else.
QString DraggedDeck(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  if (urls.size() != 1 || !urls.front().isLocalFile()) return {};
  const QString path = urls.front().toLocalFile();
  return path.endsWith(QLatin1String(kDeckEnding), Qt::CaseInsensitive) ? path : QString();
}

}  // namespace

MainWindow::MainWindow() {
  setObjectName(QStringLiteral("frmMain"));
  setWindowIcon(ProgramIcon());
  setAcceptDrops(true);
  forms_ = new FormArea;
  setCentralWidget(forms_);
  menu_ = new MainMenu(menuBar());
  connect(menu_, &MainMenu::chosen, this, &MainWindow::Run);
  connect(menu_, &MainMenu::recentChosen, this, &MainWindow::OpenDeck);
  connect(forms_, &QMdiArea::subWindowActivated, this, &MainWindow::Refresh);
  connect(qApp, &QApplication::focusChanged, this,
          [this](const QWidget*, const QWidget* now) { ExplainFocus(now); });
  BuildStatusBar();
  InstallMainWindow(*this);
}

MainWindow::~MainWindow() {
  // The focus moves on while the widgets of this window go.
  disconnect(qApp, nullptr, this, nullptr);
  // The area goes first: its windows speak to this one when the front one changes.
  delete takeCentralWidget();
  InstallWindows({});
  if (loaded_) EndProgram();
}

Started MainWindow::Load(const StartUp& start) {
  start_ = start;
  const Started started = RunStartUp(start);
  loaded_ = started == Started::Ready;
  if (loaded_) {
    LoadDisplayOptions();
    RestorePlace();
    auto* const watch = new HandOverWatch(this);
    connect(watch, &HandOverWatch::arrived, this, &MainWindow::ComeToFront);
  }
  Refresh();
  return started;
}

template <class Body>
void MainWindow::Guarded(std::string_view routine, Body body) {
  if (IsBusy()) return;  // the box of a running command is on its way
  try {
    body();
  } catch (const UserStop&) {
    LookAtResults();
    TheWindows().dropFigureData();
    ShowHint(*statusBar(), QStringLiteral("中止しました"));
  } catch (const std::exception& fault) {
    ReportError(routine, fault.what());
  }
  EndBusy();
  try {
    forms_->RenewAll();
  } catch (const std::exception& fault) {
    ReportError("RenewForms", fault.what());
  }
  Refresh();
}

void MainWindow::Run(Command command) {
  const auto row = std::ranges::find(kCommands, command, &CommandRow::command);
  if (row != kCommands.end()) Guarded(row->routine, [&] { row->run(*this); });
}

void MainWindow::OpenDeck(const QString& path) {
  Guarded("OpenDeckFile", [&] { OpenDeckFile(FromQt(path)); });
}

void MainWindow::ComeToFront(const QString& deck) {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
  if (!deck.isEmpty()) OpenDeck(deck);
}

void MainWindow::Refresh() {
  setWindowTitle(ToQt(MainCaption()));
  const Form* const front = FormInFront(*forms_);
  MenuFacts facts = CurrentMenuFacts(front != nullptr && front->TakesEdits());
  facts.undo = front != nullptr && front->CanUndo();
  facts.redo = front != nullptr && front->CanRedo();
  menu_->Update(facts);
  if (auto* const tables = qobject_cast<frmInputMenu*>(forms_->Find("frmInputMenu"))) tables->Update(facts);
  FollowMenu(*this, facts);
  if (loaded_) menu_->ShowRecent(RecentModels());
  ShowStatus();
  forms_->FollowState();
}

void MainWindow::BuildStatusBar() {
  fields_ = new StatusFields;
  // Results and what isn't saved are cut last, the kind of the model, which nobody forgets, first.
  fields_->Add("statusModel", 3);
  fields_->Add("statusSaved", 5);
  fields_->Add("statusResults", 4);
  fields_->Add("statusKind", 0);
  fields_->Add("statusCases", 1);
  fields_->Add("statusUnits", 2);
  statusBar()->addPermanentWidget(fields_);
  connect(statusBar(), &QStatusBar::messageChanged, statusBar(),
          &QWidget::setToolTip);  // whole, if it is cut
}

void MainWindow::ShowStatus() {
  const ModelStatus status = CurrentModelStatus();
  fields_->Show({ToQt(status.model), ToQt(status.saved), ToQt(status.results), ToQt(status.kind),
                 ToQt(status.cases), ToQt(status.units)});
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  fields_->setMaximumWidth(std::max(0, width() - kMessageRoom));
}

bool MainWindow::event(QEvent* event) {
  if (event->type() == QEvent::StatusTip) hovered_ = static_cast<QStatusTipEvent*>(event)->tip();
  return QMainWindow::event(event);
}

void MainWindow::ExplainFocus(const QWidget* now) {
  // Behind a dialog the same widget has the keys again: what the dialog's end has told stays.
  if (now == nullptr || now == explained_ || !isAncestorOf(now)) return;
  explained_ = now;
  const auto* const tool = qobject_cast<const QToolButton*>(now);
  const QAction* const action = tool == nullptr ? nullptr : tool->defaultAction();
  QString text = action != nullptr ? action->statusTip() : now->statusTip();
  if (text.isEmpty()) text = now->toolTip();
  const QString shown = statusBar()->currentMessage();
  if (!text.isEmpty())
    statusBar()->showMessage(text);
  else if (!shown.isEmpty() && (shown == explanation_ || shown == hovered_))
    statusBar()->clearMessage();  // it is of what had the keys, or the mouse, before
  explanation_ = text;
}

void MainWindow::Leave() {
  if (!forms_->CloseOthers()) return;
  const ExitWay way = LeaveProgram();
  if (way == ExitWay::Stay) return;
  if (way == ExitWay::UnloadMain && !AgreesToLoss()) return;
  if (way == ExitWay::UnloadAll) forms_->UnloadAll();
  closing_ = true;
  close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!closing_) {
    event->ignore();
    ShowHint(*statusBar(),
             QStringLiteral("終了するには、ﾌｧｲﾙメニューの「ZORLAN for Windowsの終了」を選んでください"));
    return;
  }
  KeepPlace();
  event->accept();
}

void MainWindow::RestorePlace() {
  WindowPlace place;
  const bool kept = LoadWindowPlace(kPlaceName, place);
  const QRect area(place.left, place.top, place.width, place.height);
  const QPoint grip(area.center().x(), area.top() + 10);
  if (const QScreen* const screen = QGuiApplication::screenAt(grip); kept && area.isValid() && screen) {
    setGeometry(WithinScreen(area, screen->availableGeometry()));
    if (place.maximized) setWindowState(Qt::WindowMaximized);
    return;
  }
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  resize(std::min(1280, screen.width() * 9 / 10), std::min(860, screen.height() * 9 / 10));
}

void MainWindow::KeepPlace() {
  if (!loaded_) return;
  const QRect area = isMaximized() ? normalGeometry() : geometry();
  SaveWindowPlace(kPlaceName, {area.x(), area.y(), area.width(), area.height(), isMaximized()});
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!DraggedDeck(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const QString deck = DraggedDeck(*event->mimeData());
  event->acceptProposedAction();
  // Behind the drop: the program that the deck comes from waits for its end.
  QMetaObject::invokeMethod(
      this, [this, deck] { OpenDeck(deck); }, Qt::QueuedConnection);
}

}  // namespace zorlan
