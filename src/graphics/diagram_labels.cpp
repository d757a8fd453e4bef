#include "graphics/diagram_labels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "graphics/diagram_curves.h"

namespace zorlan {
namespace {

constexpr double kHeight = 0.35 * kTwipsPerCm;  // in a font of
constexpr double kFont = 8;                     // points
constexpr double kGap = 0.5 * kTwipsPerCm;

/// A place to try: how far along the member, and how far from the ordinate, below 0 on its other side; twips.
struct Try {
  double along, away;
};

/// How far a try is from a label's own place. A label rather moves along its member than away from it, and
/// rather away than to the other side.
constexpr double Distance(const Try& t) {
  const double along = t.along < 0 ? -t.along : t.along;
  if (t.away < 0) return along + 2 * kGap - t.away;
  return along + (t.away < kGap ? kGap - t.away : 1.5 * (t.away - kGap));
}

/// All tries, the nearest first. `alongs` in cm.
template <std::size_t ways>
constexpr auto NearestFirst(const std::array<double, ways>& alongs) {
  constexpr std::array kGaps = {1.0, 0.6, 1.4, 1.8, 2.2, -0.7, -1.1, -1.5};
  std::array<Try, ways * kGaps.size()> tries{};
  std::size_t count = 0;
  for (const double along : alongs)
    for (const double gaps : kGaps) tries[count++] = {along * kTwipsPerCm, gaps * kGap};
  std::ranges::sort(tries, [](const Try& a, const Try& b) {
    if (Distance(a) != Distance(b)) return Distance(a) < Distance(b);
    return a.along != b.along ? a.along < b.along : a.away < b.away;
  });
  return tries;
}
constexpr auto kTriesAtEnd = NearestFirst(std::array{0.0, 0.15, 0.3, 0.45, 0.6, 0.75, 0.9, 1.05, 1.2, 1.4});
constexpr auto kTriesAtCentre =
    NearestFirst(std::array{0.0, 0.15, -0.15, 0.3, -0.3, 0.45, -0.45, 0.6, -0.6, 0.8, -0.8, 1.0, -1.0});

std::span<const Try> TriesOf(const LabelPlace& place) {
  if (place.anchor == kCentre) return kTriesAtCentre;
  return kTriesAtEnd;
}

Point PointOf(const LabelPlace& place, const Try& t) {
  return {place.ordinate.x + t.away * place.away.x + t.along * place.along.x,
          place.ordinate.y + t.away * place.away.y + t.along * place.along.y};
}

/// The cells of lines between a label at a try and its ordinate: behind a line it would look like another
/// member's.
int LinesBefore(const LabelField& field, const LabelPlace& place, const Try& t, const TextCover& cover,
                double height) {
  constexpr double kOwn = 45;  // twips from the ordinate: so far its own lines reach
  const double edge = std::abs(t.away) - height / 2, way = t.away < 0 ? -1 : 1;
  if (edge <= kOwn) return 0;
  const Point foot = cover.MiddleAt(PointOf(place, {t.along, 0}));
  const auto off = [&](double distance) {
    return Point{foot.x + way * distance * place.away.x, foot.y + way * distance * place.away.y};
  };
  return field.LinesBetween(off(kOwn), off(edge));
}

}  // namespace

ValueLabels::ValueLabels(Plot& plot, LabelField& field, const TextOption& option, int decimals, double factor)
    : plot_(plot),
      field_(field),
      option_(option),
      pattern_(DecimalPattern(decimals)),
      number_(pattern_),
      factor_(factor),
      height_(kHeight * option.points / kFont),
      crowding_(field.Area()) {}

void ValueLabels::Add(const LabelPlace& place, double value) {
  if (!option_.visible || !std::isfinite(value)) return;
  std::string text = FormatNumber(value * factor_, number_);
  const double width = TextWidth(text, height_);
  const TextCover cover(width, height_, place.angle, place.anchor);
  const Point own = PointOf(place, TriesOf(place)[0]);
  if (!cover.Meets(field_.Area(), own) && !field_.Area().Holds(place.ordinate)) return;
  crowding_.Add(place.ordinate, width, height_);
  labels_.push_back({place, std::move(text), cover, own, {}});
}

void ValueLabels::Write() {
  Place(StandInCrowds());
  PlotSetFont(plot_, height_);
  for (const Label& label : labels_)
    PlotTextRotated(plot_, label.at.x, label.at.y, label.text, label.place.angle, option_.colour,
                    label.place.anchor);
}

/// Where nothing could be read anyway labels stand at their own places; answers the others, in the order in
/// which they choose.
std::vector<ValueLabels::Label*> ValueLabels::StandInCrowds() {
  std::vector<Label*> others;
  for (Label& label : labels_) {
    if (IsCrowded(label.place.ordinate))
      label.cover.Take(field_, label.at);
    else
      others.push_back(&label);
  }
  std::stable_partition(others.begin(), others.end(),
                        [](const Label* label) { return label->place.anchor != kCentre; });
  return others;
}

/// The best of several rounds.
void ValueLabels::Place(std::vector<Label*> order) {
  constexpr int kRounds = 4;
  if (order.empty()) return;
  const LabelField before = field_;
  Covered fewest = Covered::Everything();
  std::vector<std::pair<Label*, Point>> best;
  for (int round = 0; round < kRounds; ++round) {
    field_ = before;
    const Covered failed = PlaceInTurn(order);
    if (failed < fewest) {
      fewest = failed;
      best.clear();
      for (Label* const label : order) best.emplace_back(label, label->at);
    }
    // Where many find no room another order gives it to others only.
    if (failed.Nothing() || failed.texts > static_cast<int>(order.size() / 4)) break;
    std::stable_partition(order.begin(), order.end(), [&](const Label* label) {
      return failed.texts > 0 ? label->covered.texts > 0 : label->covered.lines > 0;
    });
  }
  field_ = before;
  for (const auto& [label, at] : best) {
    label->at = at;
    label->cover.Take(field_, at);
  }
}

/// Each label takes its place; answers how many lie on texts, and how many on lines alone.
Covered ValueLabels::PlaceInTurn(std::span<Label* const> order) {
  Covered failed;
  for (Label* const label : order) {
    Choose(*label);
    label->cover.Take(field_, label->at);
    if (label->covered.texts > 0)
      ++failed.texts;
    else if (label->covered.lines > 0)
      ++failed.lines;
  }
  return failed;
}

void ValueLabels::Choose(Label& label) {
  constexpr int kBehind = 15;  // cells: a line before a label is worse than one across it
  const LabelPlace& place = label.place;
  const std::span<const Try> tries = TriesOf(place);
  label.at = PointOf(place, tries[0]);
  label.covered = Covered::Everything();
  for (const Try& t : tries) {
    if (std::abs(t.along) > place.room) continue;
    const Point at = PointOf(place, t);
    if (!label.cover.LiesIn(field_.Area(), at)) continue;
    Covered covered = label.cover.CoveredBy(field_, at, label.covered);
    if (covered < label.covered)
      covered.lines += kBehind * LinesBefore(field_, place, t, label.cover, height_);
    if (!(covered < label.covered)) continue;
    label.at = at;
    label.covered = covered;
    if (covered.Nothing()) return;
  }
}

}  // namespace zorlan
