#include "desktop/model.h"

#include <algorithm>
#include <array>
#include <QAction>
#include <QBoxLayout>
#include <QComboBox>
#include <QFrame>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>
#include <string_view>

#include "base/host.h"
#include "base/text_file.h"
#include "desktop/figure_view.h"
#include "desktop/flow_row.h"
#include "desktop/hush.h"
#include "desktop/main_window.h"
#include "desktop/pick_panel.h"
#include "desktop/table_window.h"
#include "graphics/ratio_files.h"
#include "model/model_state.h"
#include "render/qt_text.h"
#include "shell/figure_sheets.h"
#include "shell/model_status.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

struct ToolRow {
  Tool tool;
  std::string_view caption, icon, key, hint;
  bool gap;  // a line in front of it
};

constexpr std::array kTools = {
    ToolRow{Tool::Redraw, "再描画", "figure-redraw", "", "図を描き直します", false},
    ToolRow{Tool::ZoomIn, "拡大", "figure-zoom-in", "+",
            "拡大します。図をドラッグすると、囲んだ範囲を拡大します", false},
    ToolRow{Tool::ZoomOut, "縮小", "figure-zoom-out", "-", "縮小します", false},
    ToolRow{Tool::Move, "移動", "figure-pan", "",
            "ドラッグで図を移動します（中ボタン、スペースキー、矢印キーでも移動できます）", false},
    ToolRow{Tool::All, "全", "figure-all", "Home",
            "図の全体を表示します（図のない所のダブルクリックでも表示できます）", false},
    ToolRow{Tool::Enter, "マウス入力", "figure-pick", "",
            "クリックした節点を、入力中の表に入れます（N、M キーで選び、Enter でも入ります）", true},
    ToolRow{Tool::Define, "定義", "figure-define", "",
            "クリックした節点、要素の入力データを表示します（N、M キーで選び、Enter でも表示します）", false},
    ToolRow{Tool::Options, "属性", "figure-options", "", "図の色や文字の大きさを設定します", false},
    ToolRow{Tool::Range, "範囲設定", "figure-range", "", "表示する範囲を座標で設定します", false},
    ToolRow{Tool::InputModel, "入力データモデル図", "figure-model", "", "入力データのモデル図を表示します",
            true},
    ToolRow{Tool::Loads, "架構図 荷重ケース", "figure-loads", "", "架構図に、荷重ケースの荷重を表示します",
            false},
    ToolRow{Tool::Displacement, "変位表示", "figure-displacement", "", "変位図を表示します", false},
    ToolRow{Tool::AxialShear, "軸力・せん断力表示", "figure-shear", "",
            "軸力図を表示します。もう一度押すと、せん断力図に替わります", false},
    ToolRow{Tool::Moment, "モーメント表示", "figure-moment", "", "ﾓｰﾒﾝﾄ図を表示します", false},
    ToolRow{Tool::Print, "印刷", "figure-print", "", "図を印刷プレビューに表示します", true},
};

constexpr int kIconSize = 20;

constexpr std::array<std::string_view, 8> kCaptions = {
    "入力データモデル図",   "荷重チェック図",        "変位図", "軸力図", "せん断力図", "ﾓｰﾒﾝﾄ図",
    "Ｓ断面算定用モデル図", "ＲＣ断面算定用モデル図"};

bool IsResult(int kind) {
  return SourceOf(kind) == FigureSource::Analysis;
}
bool IsRatio(int kind) {
  return SourceOf(kind) == FigureSource::Design;
}

/// The button that stands for the figure in sight.
std::optional<Tool> ToolOf(int kind) {
  switch (kind) {
    case kModelFigure:
      return Tool::InputModel;
    case kLoadCheck:
      return Tool::Loads;
    case kDisplacementFigure:
      return Tool::Displacement;
    case kAxialFigure:
    case kShearFigure:
      return Tool::AxialShear;
    case kMomentFigure:
      return Tool::Moment;
    default:
      return std::nullopt;
  }
}

}  // namespace

Model::Model(const char* name) : Form(name) {
  Build();
}

void Model::Build() {
  view_ = new FigureView;
  panel_ = new PickPanel(*view_);
  bar_ = new QWidget;
  auto* const row = new FlowRow(bar_);
  row->setContentsMargins(2, 2, 2, 2);
  row->setSpacing(1);
  bar_->setStyleSheet(QStringLiteral("QToolButton:focus { border: 2px solid palette(highlight); }"));
  AddTools();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(bar_);
  column->addWidget(view_, 1);
  setTabOrder(view_, bar_->findChild<QToolButton*>());
  SetFirst(view_);
  connect(view_, &FigureView::clicked, this, &Model::TakePick);
  view_->setStatusTip(
      QStringLiteral("N：次の節点　M：次の要素（Shift で前）　Enter：表の行　Esc：選択を外す"));
  connect(view_, &FigureView::opened, this, &Model::OpenRow);
  connect(view_, &FigureView::entered, this, &Model::EnterPick);
  connect(view_, &FigureView::walked, this, [this](Pick::What what, int step) {
    if (const std::optional<Pick> pick = NextPick(view_->TheFigure(), view_->Marked(), what, step)) {
      MarkPick(pick);
      view_->Reveal();
    }
  });
  connect(view_, &FigureView::caseAsked, this,
          [this](int steps) { ChooseCase(view_->TheFigure().loadCase + steps); });
}

void Model::AddTools() {
  for (const ToolRow& row : kTools) {
    if (row.gap) {
      auto* const line = new QFrame;
      line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
      line->setFixedHeight(kIconSize);
      bar_->layout()->addWidget(line);
    }
    if (row.tool == Tool::Print) {
      auto* const label = new QLabel(QStringLiteral("荷重ケース "));
      case_ = new QComboBox;
      case_->setObjectName(QStringLiteral("loadCase"));
      case_->setToolTip(QStringLiteral("荷重ケース (PageUp, PageDown)"));
      caseList_ = new QWidget;
      auto* const line = new QHBoxLayout(caseList_);
      line->setContentsMargins(4, 0, 4, 0);
      line->addWidget(label);
      line->addWidget(case_);
      bar_->layout()->addWidget(caseList_);
      connect(case_, &QComboBox::activated, this, [this](int index) {
        ChooseCase(index + 1);
        view_->setFocus();
      });
    }
    const QString caption = ToQt(row.caption);
    auto* const action =
        new QAction(QIcon(QStringLiteral(":/icons/%1.svg").arg(ToQt(row.icon))), caption, this);
    action->setObjectName(ToQt(row.icon));
    AddButton(action);
    const QString key = row.key.empty() ? QString() : QStringLiteral(" (%1)").arg(ToQt(row.key));
    action->setToolTip(caption + key);
    action->setStatusTip(ToQt(row.hint));
    const bool stays = row.tool == Tool::Move || row.tool == Tool::Enter || row.tool == Tool::Define ||
                       row.tool == Tool::InputModel || row.tool == Tool::Loads ||
                       row.tool == Tool::Displacement || row.tool == Tool::AxialShear ||
                       row.tool == Tool::Moment;
    action->setCheckable(stays);
    const Tool tool = row.tool;
    connect(action, &QAction::triggered, this, [this, tool] { Use(tool); });
    const auto place = static_cast<std::size_t>(tool);
    tools_.resize(std::max(tools_.size(), place + 1));
    tools_[place] = action;
  }
  note_ = new QLabel;
  note_->setObjectName(QStringLiteral("note"));
  note_->setContentsMargins(8, 0, 8, 0);
  bar_->layout()->addWidget(note_);
}

void Model::AddButton(QAction* action) {
  auto* const button = new QToolButton;
  button->setDefaultAction(action);
  button->setIconSize(QSize(kIconSize, kIconSize));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);  // for who works without a mouse
  bar_->layout()->addWidget(button);
  connect(action, &QAction::changed, button, [action, button] { button->setVisible(action->isVisible()); });
}

void Model::FollowMenu(const MenuFacts& facts) {
  struct ResultTool {
    Tool tool;
    Command command;
  };
  constexpr std::array kResultTools = {ResultTool{Tool::Loads, Command::LoadFigure},
                                       ResultTool{Tool::Displacement, Command::DisplacementFigure},
                                       ResultTool{Tool::AxialShear, Command::ShearFigure},
                                       ResultTool{Tool::Moment, Command::MomentFigure}};
  for (const ResultTool& row : kResultTools) {
    QAction* const action = tools_[static_cast<std::size_t>(row.tool)];
    const bool on = IsOn(RowOf(row.command), facts);
    action->setEnabled(on);
    action->setToolTip(on ? action->text()
                          : action->text() + QStringLiteral("（静解析を行うと表示できます）"));
  }
}

int Model::Kind() const {
  return view_->TheFigure().DiagramType;
}

void Model::Use(Tool tool) {
  switch (tool) {
    case Tool::Redraw:
      return DropData(Asked::Yes);
    case Tool::ZoomIn:
      return view_->ZoomBy(FigureView::kZoomStep);
    case Tool::ZoomOut:
      return view_->ZoomBy(1 / FigureView::kZoomStep);
    case Tool::Move:
      return view_->SetHand(tools_[static_cast<std::size_t>(tool)]->isChecked() ? FigureView::Hand::Move
                                                                                : FigureView::Hand::Pick);
    case Tool::All:
      return view_->ShowAll();
    case Tool::Enter:
    case Tool::Define:
      return;  // the next click asks for it
    case Tool::Options:
      emit optionsAsked(Kind());
      return;
    case Tool::Range:
      emit rangeAsked();
      return;
    case Tool::InputModel:
      return ShowFigure(kModelFigure, Asked::Yes);
    case Tool::Loads:
      return ShowFigure(kLoadCheck, Asked::Yes);
    case Tool::Displacement:
      return ShowFigure(kDisplacementFigure, Asked::Yes);
    case Tool::AxialShear:
      return ShowFigure(Kind() == kAxialFigure ? kShearFigure : kAxialFigure, Asked::Yes);
    case Tool::Moment:
      return ShowFigure(kMomentFigure, Asked::Yes);
    case Tool::Print:
      emit pagesAsked(Kind(), view_->TheFigure().loadCase);
      return;
  }
}

/// Draws, with boxes for what is wrong if the user has asked.
template <class Act>
void Model::Noting(Asked asked, Act act) {
  fault_.clear();
  if (asked == Asked::Yes) return act();
  const Hush hush;
  act();
  fault_ = OneLine(ToQt(hush.Message()));
  ShowNote();
}

void Model::ShowFigure(int kind, Asked asked) {
  Noting(asked, [&] { Show(kind); });
}

void Model::Show(int kind) {
  Figure& figure = view_->TheFigure();
  ChooseFigure(figure, {kind, figure.loadCase});
  if (!read_ || files_.Changed()) ReadData();
  ReadResults();
  ShowCaption();
  const bool oblique = figure.model.IsGrid() && SourceOf(kind) != FigureSource::Tables;
  // The part in sight stays in sight from one figure to the next.
  Redraw(!drawn_ || oblique != oblique_ ? kRedrawAll : kDataUnchanged);
  oblique_ = oblique;
}

void Model::ReadData() {
  Figure& figure = view_->TheFigure();
  figure.model = ReadFigureTables(typed_);
  read_ = true;
  files_.Look();
  FillCases();
  view_->Mark(std::nullopt);
  panel_->hide();
}

void Model::ReadResults() {
  Figure& figure = view_->TheFigure();
  const int kind = figure.DiagramType;
  if (IsResult(kind) && figure.model.StressTable.empty() && !LoadFigureResults(figure.model, AnalysisPath))
    Tell(kNoFittingResults);
  figure.model.ratios.clear();
  if (IsRatio(kind)) LoadFigureRatios(figure.model, kind, AnalysisPath);
}

void Model::Renew() {
  if (drawn_ && files_.Changed()) DropData(Asked::No);
}

void Model::FollowState() {
  if (drawn_) ShowNote();
}

void Model::DropData(Asked asked) {
  typed_.clear();
  if (!drawn_) return;
  Noting(asked, [this] {
    ReadData();
    ReadResults();
    FollowOptions();
  });
}

void Model::ShowTyped(const TypedRows& typed) {
  typed_ = typed;
  read_ = false;
  // Half a table is no fault yet.
  ShowFigure(drawn_ && SourceOf(Kind()) == FigureSource::Tables ? Kind() : kModelFigure, Asked::No);
}

void Model::FollowOptions() {
  Figure& figure = view_->TheFigure();
  ChooseFigure(figure, {figure.DiagramType, figure.loadCase});
  Redraw(view_->IsFitted() ? kRedrawAll : kDataUnchanged);
}

void Model::Redraw(int flags) {
  ShowNote();
  view_->Redraw(flags);
  drawn_ = true;
}

void Model::FillCases() {
  Figure& figure = view_->TheFigure();
  const int count = std::max(1, figure.model.maxLoadCase);
  figure.loadCase = std::clamp(figure.loadCase, 1, count);
  case_->clear();
  for (int c = 1; c <= count; ++c) case_->addItem(QString::number(c));
  case_->setCurrentIndex(figure.loadCase - 1);
}

void Model::ChooseCase(int loadCase) {
  Figure& figure = view_->TheFigure();
  if (!HasLoadCase(figure.DiagramType)) return;
  figure.loadCase = std::clamp(loadCase, 1, std::max(1, figure.model.maxLoadCase));
  case_->setCurrentIndex(figure.loadCase - 1);
  panel_->Show(view_->Marked());
  Redraw(kDataUnchanged);
}

void Model::ShowCaption() {
  const int kind = Kind();
  setWindowTitle(ToQt(kCaptions[static_cast<std::size_t>(kind)]));
  caseList_->setVisible(HasLoadCase(kind));
  const std::optional<Tool> shown = ToolOf(kind);
  for (const Tool tool :
       {Tool::InputModel, Tool::Loads, Tool::Displacement, Tool::AxialShear, Tool::Moment}) {
    QAction* const action = tools_[static_cast<std::size_t>(tool)];
    action->setChecked(shown == tool);
    action->setVisible(!IsRatio(kind));
  }
}

void Model::ShowNote() {
  const Figure& figure = view_->TheFigure();
  const bool noRatios = IsRatio(figure.DiagramType) && figure.model.ratios.empty();
  const bool results = (IsRatio(figure.DiagramType) || IsResult(figure.DiagramType)) && !noRatios;
  QStringList notes;
  if (const std::string remark = results ? ResultRemark(RatioFileOf(figure.DiagramType)) : "";
      !remark.empty())
    notes += ToQt(remark);
  if (noRatios) notes += QStringLiteral("断面算定の結果がありません");
  if (!typed_.empty()) notes += QStringLiteral("入力中の表を表示しています");
  if (figure.range != ViewingRange()) notes += QStringLiteral("表示範囲を限っています");
  note_->setText(fault_.isEmpty() ? notes.join(QStringLiteral("　")) : fault_);
}

bool Model::IsPressed(Tool tool) const {
  return tools_[static_cast<std::size_t>(tool)]->isChecked();
}

void Model::MarkPick(const std::optional<Pick>& pick) {
  view_->Mark(pick);
  panel_->Show(pick);
}

void Model::MarkNumber(Pick::What what, int number) {
  MarkPick(PickNumber(view_->TheFigure(), what, number));
  view_->Reveal();
}

void Model::TakePick(const std::optional<Pick>& pick) {
  MarkPick(pick);
  if (!pick) return;
  if (IsPressed(Tool::Enter)) HandOver(*pick);
  if (IsPressed(Tool::Define)) emit definitionAsked(*pick);
}

void Model::EnterPick(const Pick& pick) {
  if (IsPressed(Tool::Enter) || IsPressed(Tool::Define))
    TakePick(pick);
  else
    OpenRow(pick);
}

void Model::OpenRow(const Pick& pick) {
  TheWindows().showRow(pick.what == Pick::What::Node ? "NODE" : "ELEM", 1, pick.number);
}

void Model::HandOver(const Pick& pick) {
  const bool node = pick.what == Pick::What::Node;
  if (node ? TheWindows().takeNodes({pick.number}) : TheWindows().takeElement(pick.number)) {
    if (auto* const main = qobject_cast<MainWindow*>(window())) taker_ = TableInFront(*main);
    return NoteEdit();
  }
  note_->setText(node ? QStringLiteral("節点を入れる表が開いていません")
                      : QStringLiteral("要素を入れる表が開いていません"));
}

void Model::Edit(Command command) {
  if (taker_ == nullptr || (command != Command::Undo && command != Command::Redo)) return Form::Edit(command);
  taker_->Edit(command);
  NoteEdit();
}

void Model::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && view_->Marked())
    TakePick(std::nullopt);
  else
    Form::keyPressEvent(event);
}

}  // namespace zorlan
