#include "graphics/frame_figure.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/cp932.h"
#include "base/host.h"
#include "base/text.h"
#include "graphics/diagrams.h"
#include "graphics/figure_fault.h"
#include "graphics/frame_labels.h"
#include "graphics/loads.h"
#include "graphics/sides.h"
#include "graphics/supports.h"

namespace zorlan {
namespace {

constexpr double kRadiusPerDot = 25;  // twips: of a node's circle
/// Left white along a cell's edges: so narrow that a diagram of 1 cm still lies in the margin of four figures
/// on A4.
constexpr double kStrip = 0.25 * kTwipsPerMm;
constexpr double kSupportPerRadius = 8;  // height of a support's triangle

void MarkShownNodes(Figure& figure) {
  int highest = -1;
  for (const FigureNode& node : figure.model.nodes) highest = std::max<int>(highest, node.number);
  figure.NodeShown.assign(static_cast<std::size_t>(highest + 1), -1);
  for (const FigureNode& node : figure.model.nodes)
    if (node.number >= 0 && !figure.range.Holds(node.x, node.y))
      figure.NodeShown[static_cast<std::size_t>(node.number)] = 0;
}

void MarkShownElements(Figure& figure) {
  const FigureModel& model = figure.model;
  figure.shown.assign(model.elements.size(), 0);
  for (std::size_t e = 0; e < model.elements.size(); ++e) {
    const FigureElement& element = model.elements[e];
    if (element.rowI < 0 || element.rowJ < 0) continue;
    const bool i = IsNodeShown(figure, element.I), j = IsNodeShown(figure, element.J);
    figure.shown[e] = figure.range.mode == RangeMode::OneEnd ? i || j : i && j;
  }
}

/// Extent of the shown nodes, and of the grid's oblique view the extent of what comes out of it.
void PlaceNodes(Figure& figure) {
  const FigureModel& model = figure.model;
  std::vector<Point> shownPlaces;
  const auto collect = [&] {
    shownPlaces.clear();
    for (std::size_t n = 0; n < figure.place.size(); ++n)
      if (IsNodeShown(figure, model.nodes[n].number)) shownPlaces.push_back(figure.place[n]);
    SetExtent(figure.view, shownPlaces);
  };
  figure.place.clear();
  for (const FigureNode& node : model.nodes) figure.place.push_back({node.x, node.y});
  collect();
  if (!figure.oblique) return;
  const View& view = figure.view;
  figure.projection = Projection((view.tVxmin + view.tVxmax) / 2, (view.tVymin + view.tVymax) / 2, 0,
                                 figure.options.viewTurn, figure.options.viewTilt);
  for (Point& p : figure.place) p = figure.projection.ProjectPoint(p.x, p.y, 0);
  collect();
}

/// The drawing area of a page: its cell, and the offsets that lead there.
void PlaceCell(Plot& plot, std::string_view control, Figure& figure, int layout, int cell) {
  const Surface& page = plot.surface;
  const bool margins = UpperCase(control).find("PICTURE") == std::string::npos;
  const double left = margins ? page.marginLeft : 0, top = margins ? page.marginTop : 0;
  const Cell place = CellOf(layout, cell, page.width - left - (margins ? page.marginRight : 0),
                            page.height - top - (margins ? page.marginBottom : 0));
  plot.OffsetX = place.x + left;
  plot.OffsetY = place.y + top;
  figure.cellWidth = place.width;
  figure.cellHeight = place.height;
}

/// Tells of a member without length, once for the data in hand: redraws come with every move of the view.
void TellLength(FigureModel& model, const FigureElement& element) {
  if (model.lengthFaultTold) return;
  model.lengthFaultTold = true;
  TheHost().message("要素番号＝" + std::to_string(element.number) +
                        "\n要素の長さ＝０です。修正してください\n節点番号＝" + std::to_string(element.I) +
                        "～" + std::to_string(element.J),
                    "要素データエラー");
}

/// Draws the shown members up to the first without length; false then.
bool DrawMembers(Plot& plot, Figure& figure, LabelField& labels, bool visible) {
  const LineOption& option = figure.options.element;
  PlotSetPen(plot, option.style, option.width);
  for (std::size_t e = 0; e < figure.shown.size(); ++e) {
    if (figure.shown[e] == 0) continue;
    const FigureElement& element = figure.model.elements[e];
    const FigureNode& i = figure.model.nodes[static_cast<std::size_t>(element.rowI)];
    const FigureNode& j = figure.model.nodes[static_cast<std::size_t>(element.rowJ)];
    if (i.x == j.x && i.y == j.y) {
      TellLength(figure.model, element);
      return false;
    }
    const Figure::Ends ends = figure.EndsOf(element);
    labels.TakeLine(ends.i, ends.j);
    if (visible) PlotDashedLine(plot, ends.i.x, ends.i.y, ends.j.x, ends.j.y, option.colour);
  }
  return true;
}

/// Pinned ends: small rings on the member, beside the node.
void DrawHinges(Plot& plot, const Figure& figure) {
  const double radius = 1.4 * NodeRadius(figure.options), away = radius + NodeRadius(figure.options);
  PlotSetPen(plot, LineStyle::Solid, 1);
  for (std::size_t e = 0; e < figure.shown.size(); ++e) {
    const FigureElement& element = figure.model.elements[e];
    if (figure.shown[e] == 0 || (element.II != 1 && element.JJ != 1)) continue;
    const auto [i, j] = figure.EndsOf(element);
    const double length = std::hypot(j.x - i.x, j.y - i.y);
    if (!(length > 6 * away)) continue;  // it would hide the member
    const double dx = (j.x - i.x) / length * away, dy = (j.y - i.y) / length * away;
    if (element.II == 1) PlotCircle(plot, i.x + dx, i.y + dy, radius, figure.options.element.colour);
    if (element.JJ == 1) PlotCircle(plot, j.x - dx, j.y - dy, radius, figure.options.element.colour);
  }
}

/// Where a node's support stands: to the left, unless members reach there and none to the right.
SupportSide SupportSideOf(const Sides& members) {
  return members.Has(Side::Left) && !members.Has(Side::Right) ? SupportSide::Right : SupportSide::Left;
}

void DrawNodes(Plot& plot, const Figure& figure, LabelField& labels) {
  const LineOption& option = figure.options.node;
  const double radius = NodeRadius(figure.options), size = SupportSize(figure.options);
  const std::vector<Sides> members = MemberSides(figure, /*most=*/1);
  PlotSetPen(plot, LineStyle::Solid, 1);
  for (std::size_t n = 0; n < figure.place.size(); ++n) {
    const FigureNode& node = figure.model.nodes[n];
    if (!IsNodeShown(figure, node.number)) continue;
    const Point p = figure.view.ToFigure(figure.place[n]);
    if (const std::string_view code = SupportSymbol(node.code); code != "000") {
      const SupportSide side = SupportSideOf(members[n]);
      DrawSupport(plot, p, code, size, node.rollerAngle, option.colour, side);
      for (const Rectangle& box : SupportBoxes(p, code, size, node.rollerAngle, side)) labels.TakeMark(box);
    }
    if (!option.visible) continue;
    PlotCircle(plot, p.x, p.y, radius, option.colour, /*filled=*/true);
    labels.Take({p.x - radius, p.y - radius, p.x + radius, p.y + radius});
  }
}

struct KindOfFigure {
  std::string_view name;
  std::string_view layer;
  std::string_view unit, unitSI;                    // of the values in it
  std::string_view routine;                         // that a fault names
  void (*draw)(Plot&, const Figure&, LabelField&);  // null: nothing stands on the frame, or loads
};

constexpr std::array<KindOfFigure, 8> kKinds = {{
    {{}, layer::kModel, {}, {}, {}, nullptr},
    {"荷重ﾁｪｯｸ図", layer::kLoad, "(単位:t)", "(単位:kN)", {}, nullptr},
    {"変位図", layer::kDisplacement, {}, {}, "DrawDisplacementData", DrawDisplacementData},
    {"軸力図", layer::kForce, "(単位:t)", "(単位:kN)", "DrawNormalData", DrawNormalData},
    {"せん断力図", layer::kShear, "(単位:t)", "(単位:kN)", "DrawNormalShearData", DrawNormalShearData},
    {"ﾓｰﾒﾝﾄ図", layer::kMoment, "(単位:t･m)", "(単位:kN･m)", "DrawMomentData", DrawMomentData},
    {"Ｓ断面算定用モデル図", layer::kModel, {}, {}, "DrawRatioData", DrawRatioData},
    {"ＲＣ断面算定用モデル図", layer::kModel, {}, {}, "DrawRatioData", DrawRatioData},
}};

const KindOfFigure& KindOf(int kind) {
  return kKinds[kind >= 0 && kind < static_cast<int>(kKinds.size()) ? static_cast<std::size_t>(kind) : 0];
}

/// The model's title, broken where its cell is too narrow for it.
std::vector<std::string> TitleLines(const std::string& title, double room, double height) {
  constexpr std::size_t kMost = 4;
  std::vector<std::string> lines;
  for (const std::string_view piece :
       InPiecesOf(title, static_cast<std::size_t>(std::max(2.0, 2 * room / height)))) {
    if (lines.size() == kMost) {
      std::string& last = lines.back();
      last = std::string(InPiecesOf(last, HalfWidth(last) - 2)[0]) + "…";
      break;
    }
    lines.emplace_back(piece);
  }
  return lines;
}

/// Title lines in the left upper corner of the cell, as large as its width takes them, and no larger than the
/// margin above the model. A title too long for letters that print well takes several lines.
void DrawTitle(Plot& plot, const Figure& figure, int kind, LabelField& labels) {
  constexpr double kHeight = 9 * kTwipsPerPoint, kReadable = 7 * kTwipsPerPoint,
                   kSmallest = 5 * kTwipsPerPoint, kShare = 0.04, kPad = 100, kLine = 1.3;
  const KindOfFigure& shown = KindOf(kind);
  const bool loads = kind == kLoadCheck;
  const std::string title = "タイトル：" + figure.model.title + "   (" + figure.model.name + ")";
  std::string name(shown.name);
  if (HasLoadCase(kind)) name += "  荷重ｹｰｽ=" + std::to_string(figure.loadCase);
  // Loads stand as they were entered, results in the unit of the output.
  const std::string_view unit =
      IsSI(loads ? figure.model.inUnit : figure.model.outUnit) ? shown.unitSI : shown.unit;

  const double room = figure.cellWidth - 2 * kPad;
  const double wide = std::max(TextWidth(title, 1), TextWidth(name, 1) + TextWidth(unit, 1) + 1);
  const double largest = std::clamp(kShare * figure.cellHeight, kSmallest, kHeight);
  const double height = std::clamp(room / wide, std::min(kReadable, largest), largest);
  PlotSetFont(plot, height);
  const auto write = [&](double x, double y, std::string_view text) {
    if (text.empty()) return;
    PlotText(plot, x, y, text, kBlack);
    labels.Take({x, y, x + TextWidth(text, height), y + height});
  };
  double y = kPad;
  for (const std::string& line : TitleLines(title, room, height)) {
    write(kPad, y, line);
    y += kLine * height;
  }
  write(kPad, y, name);
  write(figure.cellWidth - kPad - TextWidth(unit, height), y, unit);
}

/// What the figure shows on the frame; false when a routine ended by a fault, which has been told then.
bool DrawContents(Plot& plot, const Figure& figure, int kind, LabelField& labels) {
  if (kind == kLoadCheck) return DrawLoads(plot, figure, labels);
  const KindOfFigure& shown = KindOf(kind);
  return shown.draw == nullptr || RunFigureRoutine(shown.routine, [&] { shown.draw(plot, figure, labels); });
}

void DrawFigure(Plot& plot, std::string_view control, Figure& figure, int kind, int layout, int cell) {
  if ((figure.FigureFlags & kReadTables) != 0 && (figure.FigureFlags & kDataUnchanged) == 0)
    figure.model = ReadFigureTables();
  PrepareFigure(plot, control, figure, kind, layout, cell);
  LabelField labels({plot.clip.left - plot.OffsetX, plot.clip.top - plot.OffsetY,
                     plot.clip.right - plot.OffsetX, plot.clip.bottom - plot.OffsetY});
  const KindOfFigure& shown = KindOf(kind);

  plot.DrawLayer = layer::kTitle;
  DrawTitle(plot, figure, kind, labels);
  plot.DrawLayer = layer::kModel;
  const bool ratios = SourceOf(kind) == FigureSource::Design;
  if (!DrawMembers(plot, figure, labels, figure.options.element.visible && !ratios)) return;
  if (SourceOf(kind) == FigureSource::Tables) DrawHinges(plot, figure);
  DrawNodes(plot, figure, labels);

  plot.DrawLayer = shown.layer;
  if (!DrawContents(plot, figure, kind, labels)) return;
  plot.DrawLayer = layer::kModel;
  DrawNumbers(plot, figure, labels);
}

}  // namespace

double NodeRadius(const FigureOptions& options) {
  return kRadiusPerDot * options.node.width;
}

double SupportSize(const FigureOptions& options) {
  return kSupportPerRadius * NodeRadius(options);
}

bool IsNodeShown(const Figure& figure, int number) {
  return number >= 0 && static_cast<std::size_t>(number) < figure.NodeShown.size() &&
         figure.NodeShown[static_cast<std::size_t>(number)] != 0;
}

void PrepareFigure(Plot& plot, std::string_view control, Figure& figure, int kind, int layout, int cell) {
  plot.Begin();
  figure.cellWidth = plot.surface.width;
  figure.cellHeight = plot.surface.height;
  figure.oblique = figure.model.IsGrid() && SourceOf(kind) != FigureSource::Tables;
  MarkShownNodes(figure);
  MarkShownElements(figure);
  PlaceNodes(figure);

  if (plot.DrawToPrinter) PlaceCell(plot, control, figure, layout, cell);
  const bool fit = (figure.FigureFlags & kFitWindow) != 0;
  if (fit)
    FitWindow(figure.view, figure.cellWidth, figure.cellHeight);
  else if (plot.DrawToPrinter)  // part of a figure: all that the screen showed
    KeepWindow(figure.view, figure.cellWidth, figure.cellHeight);
  // What reaches beyond a fitted model has the margins of a page of its own. Between the figures of a page a
  // strip stays white, else lines that are cut there would look like one.
  const double strip = CellCount(layout) > 1
                           ? std::clamp(std::min(figure.cellWidth, figure.cellHeight) / 100, 0.0, kStrip)
                           : 0;
  if (plot.DrawToPrinter && (!fit || strip > 0))
    plot.BeginCell(plot.OffsetX + strip, plot.OffsetY + strip, figure.cellWidth - 2 * strip,
                   figure.cellHeight - 2 * strip);
}

void DrawFrameFigure(Plot& plot, std::string_view control, Figure& figure, std::optional<int> kind,
                     int layout, int cell) {
  RunFigureRoutine("DrawFrameFigure", [&] {
    DrawFigure(plot, control, figure, kind.value_or(figure.DiagramType), layout, cell);
  });
}

}  // namespace zorlan
