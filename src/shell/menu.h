// The menus of the main window and the buttons of the input menu as data, and which entries are on in which
// state. The desktop makes its menus from the rows and maps a row's command to what it does.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zorlan {

/// What an entry does; None: a menu that opens.
enum class Command {
  None,
  // File
  New,
  Open,
  Overwrite,
  SaveAs,
  Delete,
  BackUp,
  Restore,
  DeleteProject,
  Convert,
  PrinterSetUp,
  PrintInput,
  Exit,
  // Edit, on the active table form
  Undo,
  Redo,
  Cut,
  Copy,
  Paste,
  InsertRow,
  DeleteRow,
  Assign,
  Add,
  FindFault,
  // Data: the table forms
  Title,
  SubTitle,
  Control,
  Unit,
  Node,
  Element,
  Section,
  NodalLoad,
  ElementLoad,
  CmqLoad,
  TemperatureLoad,
  Spring,
  ForcedDisplacement,
  RigidZone,
  Magnification,
  SameDisplacement,
  Check,
  ModelFigure,
  InputHelp,
  // Analysis
  Analyse,
  ReadListing,
  PrintListing,
  WriteCsv,
  // Design
  DesignSteel,
  DesignConcrete,
  PrintSteelDesign,
  PrintConcreteDesign,
  SteelFigure,
  ConcreteFigure,
  DesignTimber,
  // View
  LoadFigure,
  DisplacementFigure,
  NormalFigure,
  ShearFigure,
  MomentFigure,
  PrintFigures,
  DisplayOptions,
  ResultOptions,
  // Section tables
  TableH,
  TableBox,
  TablePipe,
  TableMizo,
  TableYama,
  TimberGrades,
  TimberSections,
  // Window, help
  Cascade,
  TileHorizontal,
  TileVertical,
  Manual,
  Version,
};

/// What an entry needs to be on.
enum class Needs {
  Nothing,
  Model,      // a model in hand
  Tables,     // a model in hand whose control data are there
  Forced,     // a model in hand that isn't a plane grid
  Magnified,  // as Tables, without inclined rollers
  TableForm,  // a table form in front
  UndoStep,   // an edit to take back, or one taken back, of what is in front
  RedoStep,
  Forces,          // the member forces of an analysis
  Listing,         // a stored listing, or the forces
  SteelDesign,     // a steel design's result
  ConcreteDesign,  // a concrete design's result
};

/// One entry. A row of a deeper level than the row above opens from it.
struct MenuRow {
  int level = 0;             // 0: on the bar
  std::string_view caption;  // with its mnemonic behind "&"
  std::string_view control;  // the control's name
  int index = -1;            // its place in an array of controls of this name; -1: stands alone
  Command command = Command::None;
  Needs needs = Needs::Nothing;
  std::string_view key;   // such as "Ctrl+N"; empty: none
  std::string_view hint;  // what it does, for the status bar
};

namespace menu {
using enum Command;
using enum Needs;

inline constexpr MenuRow kRows[] = {
    {0, "ﾌｧｲﾙ(&F)", "mnuFile", -1, None, Nothing, "", ""},
    {1, "新規作成(&N)...", "mnuFileItem", 0, New, Nothing, "Ctrl+N", "新しいモデルの入力を始めます"},
    {1, "ﾓﾃﾞﾙを開く(&O)...", "mnuFileItem", 1, Open, Nothing, "Ctrl+O", "保存されているモデルを開きます"},
    {1, "ﾓﾃﾞﾙの上書き保存(&S)", "mnuFileItem", 2, Overwrite, Model, "Ctrl+S", "入力中のモデルを保存します"},
    {1, "ﾓﾃﾞﾙの名前を付けて保存(&A)...", "mnuFileItem", 3, SaveAs, Model, "Ctrl+Shift+S",
     "入力中のモデルを、解析結果とともに別の名前で保存します"},
    {1, "ﾓﾃﾞﾙを削除(&D)", "mnuFileItem", 4, Delete, Nothing, "",
     "保存されているモデルを、解析結果とともに削除します"},
    {1, "プロジェクトの複写（&C）", "mnuFileItem", 5, None, Nothing, "", ""},
    {2, "バックアップ(&B)", "mnuProjectItem", 0, BackUp, Nothing, "", "プロジェクトを別の場所へ複写します"},
    {2, "リストア(&R)", "mnuProjectItem", 1, Restore, Nothing, "",
     "プロジェクトをデータフォルダへ複写します"},
    {1, "プロジェクトの削除(&E)", "mnuFileItem", 6, DeleteProject, Nothing, "",
     "プロジェクトをフォルダごと削除します"},
    {1, "データ変換（Ver1→Ver5）(&W)...", "mnuFileItem", 7, Convert, Nothing, "",
     "Ｖｅｒ１．０のモデルを変換します"},
    {1, "ﾌﾟﾘﾝﾀの設定(&U)", "mnuFileItem", 8, PrinterSetUp, Nothing, "", "印刷するプリンタと用紙を設定します"},
    {1, "入力ﾓﾃﾞﾙの印刷(&P)", "mnuFileItem", 9, PrintInput, Model, "Ctrl+P",
     "入力データのリストを印刷します"},
    {1, "ZORLAN for Windowsの終了(&X)", "mnuFileItem", 10, Exit, Nothing, "", "プログラムを終了します"},
    {0, "編集(&E)", "mnuEdit", -1, None, Nothing, "", ""},
    {1, "元に戻す(&U)", "mnuUndo", -1, Undo, UndoStep, "Ctrl+Z", "直前の編集を取り消します"},
    {1, "やり直し(&R)", "mnuRedo", -1, Redo, RedoStep, "Ctrl+Y", "取り消した編集をやり直します"},
    {1, "切り取り(&T)", "mnuEditItem", 0, Cut, TableForm, "Ctrl+X", "選択したセルを切り取ります"},
    {1, "ｺﾋﾟｰ(&C)", "mnuEditItem", 1, Copy, TableForm, "Ctrl+C", "選択したセルをコピーします"},
    {1, "貼り付け(&P)", "mnuEditItem", 2, Paste, TableForm, "Ctrl+V", "クリップボードの内容を貼り付けます"},
    {1, "行挿入(&I)", "mnuEditItem", 3, InsertRow, TableForm, "", "空の行を挿入します"},
    {1, "行削除(&D)", "mnuEditItem", 4, DeleteRow, TableForm, "", "選択した行を削除します"},
    {1, "一括代入", "mnuEditItem", 5, Assign, TableForm, "", "選択したセルに同じ値を入れます"},
    {1, "加算", "mnuEditItem", 6, Add, TableForm, "", "選択したセルの値に数を加えます"},
    {1, "誤りのある行へ(&G)", "mnuFindFault", -1, FindFault, TableForm, "F8",
     "いちばん近い、誤りのある行へ移ります"},
    {0, "ﾃﾞｰﾀ(&D)", "mnuData", -1, None, Nothing, "", ""},
    {1, "タイトル", "mnuDataItem", 0, Title, Model, "", "モデルのタイトルを入力します"},
    {1, "サブタイトル", "mnuDataItem", 1, SubTitle, Model, "", "モデルのサブタイトルを入力します"},
    {1, "コントロール", "mnuDataItem", 2, Control, Model, "", "解析モデルと荷重ケースの数を入力します"},
    {1, "単位", "mnuDataItem", 3, Unit, Model, "", "入力と出力の単位を入力します"},
    {1, "節点(&N)", "mnuDataItem", 4, Node, Tables, "", "節点の座標と支持条件を入力します"},
    {1, "要素(&L)", "mnuDataItem", 5, Element, Tables, "", "要素の両端の節点と断面を入力します"},
    {1, "断面(&S)", "mnuDataItem", 6, Section, Tables, "", "断面の形と材料の定数を入力します"},
    {1, "荷重(&O)...", "mnuDataItem", 7, None, Tables, "", ""},
    {2, "節点荷重", "mnuLoad", 0, NodalLoad, Tables, "", "節点にかかる荷重を入力します"},
    {2, "要素荷重", "mnuLoad", 1, ElementLoad, Tables, "", "要素にかかる荷重を入力します"},
    {2, "CMQ荷重", "mnuLoad", 2, CmqLoad, Tables, "", "要素荷重をＣＭＱで入力します"},
    {2, "温度荷重", "mnuLoad", 3, TemperatureLoad, Tables, "", "要素の温度変化を入力します"},
    {1, "支点ばね(&P)", "mnuDataItem", 8, Spring, Tables, "", "支点のばね定数を入力します"},
    {1, "強制変位(&K)", "mnuDataItem", 9, ForcedDisplacement, Forced, "", "節点の強制変位を入力します"},
    {1, "剛域(&R)", "mnuDataItem", 10, RigidZone, Tables, "", "部材端の剛域を入力します"},
    {1, "フレーム倍率(&Y)", "mnuDataItem", 11, Magnification, Magnified, "",
     "フレームの倍率をＸ座標の範囲で入力します"},
    {1, "同一変形(&I)", "mnuDataItem", 12, SameDisplacement, Tables, "",
     "同じ変位をする節点のグループを入力します"},
    {1, "ﾃﾞｰﾀﾁｪｯｸ", "mnuTestNodeCheck", -1, Check, Model, "F9", "入力データの誤りを調べます"},
    {1, "モデル図表示", "mnuModel", -1, ModelFigure, Model, "", "入力したモデルの図を表示します"},
    {1, "入力説明文表示", "mnuRemark", -1, InputHelp, TableForm, "F1", "入力中の表の説明を表示します"},
    {0, "解析(&A)", "mnuAnalysis", -1, None, Nothing, "", ""},
    {1, "静解析(&S)...", "mnuAnalysisStatic", 0, Analyse, Model, "F5", "モデルを保存して、静解析を行います"},
    {1, "解析結果のリスト確認(&C)", "mnuAnalysisStatic", 1, ReadListing, Listing, "",
     "解析結果のリストを画面に表示します"},
    {1, "解析結果のリスト印刷(&P)", "mnuAnalysisStatic", 2, PrintListing, Listing, "",
     "解析結果のリストを印刷します"},
    {1, "解析結果のＣＳＶ出力(&O)", "mnuAnalysisStatic", 3, WriteCsv, Forces, "",
     "解析結果を表計算用のファイルに書き出します"},
    {0, "断面算定(&A)", "mnuDesign", -1, None, Nothing, "", ""},
    {1, " Ｓ 断面算定(&S)...", "mnuDesignS", -1, DesignSteel, Forces, "", "鉄骨部材の断面算定を行います"},
    {1, "ＲＣ断面算定(&R)...", "mnuDesignRC", -1, DesignConcrete, Forces, "",
     "鉄筋コンクリート部材の断面算定を行います"},
    {1, "断面算定結果の印刷(&P)...", "mnuDesignPrn", -1, None, Nothing, "", ""},
    {2, "Ｓ断面算定結果の印刷", "mnuDesignPrnItem", 0, PrintSteelDesign, SteelDesign, "",
     "鉄骨部材の断面算定の結果を印刷します"},
    {2, "ＲＣ断面算定結果の印刷", "mnuDesignPrnItem", 1, PrintConcreteDesign, ConcreteDesign, "",
     "鉄筋コンクリート部材の断面算定の結果を印刷します"},
    {1, "モデル図表示", "mnuDesignModel", -1, None, Nothing, "", ""},
    {2, "Ｓ断面算定用モデル図", "mnuDesignModelItem", 0, SteelFigure, Forces, "",
     "鉄骨部材の検定比を図で表示します"},
    {2, "ＲＣ断面算定用モデル図", "mnuDesignModelItem", 1, ConcreteFigure, Forces, "",
     "鉄筋コンクリート部材の断面算定の結果を図で表示します"},
    {1, "木造（トラス部材）断面算定", "mnuDesignWood", -1, DesignTimber, Forces, "",
     "木造トラス部材の断面算定を行います"},
    {0, "荷重・応力図表示(&V)", "mnuView", -1, None, Nothing, "", ""},
    {1, "荷重チェック図(&M)", "mnuViewModel", -1, LoadFigure, Forces, "", "荷重を図で確かめます"},
    {1, "変位図", "mnuViewDiagramDisplacement", -1, DisplacementFigure, Forces, "", "変位の図を表示します"},
    {1, "軸力図", "mnuViewDiagramNormal", -1, NormalFigure, Forces, "", "軸力の図を表示します"},
    {1, "せん断力図", "mnuViewDiagramShear", -1, ShearFigure, Forces, "", "せん断力の図を表示します"},
    {1, "ﾓｰﾒﾝﾄ図", "mnuViewDiagramMoment", -1, MomentFigure, Forces, "", "曲げモーメントの図を表示します"},
    {1, "一括表示出力", "mnuViewPrnAll", -1, PrintFigures, Forces, "", "図をまとめて表示し、印刷します"},
    {1, "基本表示属性設定", "minViewOption", 0, DisplayOptions, Forces, "",
     "モデル図の色や文字の大きさを設定します"},
    {1, "解析結果表示属性設定", "minViewOption", 1, ResultOptions, Forces, "",
     "応力図の色や倍率を設定します"},
    {0, "鋼材ﾃｰﾌﾞﾙ(&K)", "mnuSteelTable", -1, None, Nothing, "", ""},
    {1, "Ｈ形鋼(&H)", "H_Table", -1, TableH, Nothing, "", "Ｈ形鋼のテーブルを編集します"},
    {1, "□形鋼管(&B)", "BOX_Table", -1, TableBox, Nothing, "", "□形鋼管のテーブルを編集します"},
    {1, "○形鋼管(&P)", "PIPE_Table", -1, TablePipe, Nothing, "", "○形鋼管のテーブルを編集します"},
    {1, "溝形鋼(&M)", "MIZO_TABLE", -1, TableMizo, Nothing, "", "溝形鋼のテーブルを編集します"},
    {1, "山形鋼(&Y)", "YAMA_TABLE", -1, TableYama, Nothing, "", "山形鋼のテーブルを編集します"},
    {0, "木材ﾃｰﾌﾞﾙ(&M)", "mnuTimberTable", -1, None, Nothing, "", ""},
    {1, "材種(&Z)", "Kijyun_Table", -1, TimberGrades, Nothing, "", "木材の材種のテーブルを編集します"},
    {1, "断面(&D)", "Danmen_Table", -1, TimberSections, Nothing, "", "木材の断面のテーブルを編集します"},
    {0, "ｳｨﾝﾄﾞｳ(&W)", "mnuWindow", -1, None, Nothing, "", ""},
    {1, "重ねて表示(&C)", "mnuWindowItem", 0, Cascade, Nothing, "", "ウィンドウを重ねて並べます"},
    {1, "上下にならべて表示(&H)", "mnuWindowItem", 1, TileHorizontal, Nothing, "",
     "ウィンドウを上下に並べます"},
    {1, "左右にならべて表示(&V)", "mnuWindowItem", 2, TileVertical, Nothing, "",
     "ウィンドウを左右に並べます"},
    {0, "ﾍﾙﾌﾟ(&H)", "mnuHelp", -1, None, Nothing, "", ""},
    {1, "操作マニュアル(&S)", "mnuHelpItem", 0, Manual, Nothing, "", "操作マニュアルを開きます"},
    {1, "バージョン情報(&A)", "mnuHelpItem", 1, Version, Nothing, "", "プログラムの版を表示します"},
};

}  // namespace menu

/// The menus, row by row from the left and from above.
inline constexpr std::span<const MenuRow> kMenu = menu::kRows;

/// "mnuFileItem(3)", "mnuModel": a name of its own for each entry.
std::string ControlName(const MenuRow& row);

/// The row of a command.
const MenuRow& RowOf(Command command);

/// A button of `frmInputMenu`; Command::None is "荷重", which opens the four load tables.
struct InputButton {
  std::string_view caption;
  Command command;
};
inline constexpr InputButton kInputButtons[] = {
    {"タイトル", Command::Title},
    {"サブタイトル", Command::SubTitle},
    {"コントロール", Command::Control},
    {"単位", Command::Unit},
    {"節点", Command::Node},
    {"要素", Command::Element},
    {"断面", Command::Section},
    {"荷重", Command::None},
    {"支点ばね", Command::Spring},
    {"強制変位", Command::ForcedDisplacement},
    {"剛域", Command::RigidZone},
    {"フレーム倍率", Command::Magnification},
    {"同一変形", Command::SameDisplacement},
};

/// The table form that a command opens, such as "InpNODE"; empty for other commands.
std::string_view TableFormOf(Command command);

/// What the state of the entries depends on.
struct MenuFacts {
  bool modelOpen = false;
  std::int16_t modelCode = 0, maxLoadCase = 0, rollerFlag = 0;
  bool tableForm = false;           // a table form is in front
  bool undo = false, redo = false;  // what is in front has a step to walk
  bool forces = false, listing = false, steelDesign = false, concreteDesign = false;
};

/// The facts of the model in hand. Whoever knows the form in front says whether it has steps to undo.
MenuFacts CurrentMenuFacts(bool tableFormInFront);

/// Whether an entry is on. One that opens others is on if the model's state allows any of them.
bool IsOn(const MenuRow& row, const MenuFacts& facts);
/// The same for a button of the input menu.
bool IsOn(const InputButton& button, const MenuFacts& facts);

}  // namespace zorlan
