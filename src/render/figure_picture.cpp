#include "render/figure_picture.h"

namespace zorlan {
namespace {

bool Same(const Pen& a, const Pen& b) {
  return a.colour == b.colour && a.style == b.style && a.width == b.width;
}

/// The group of a pen; pens are few, and the one used last is mostly meant again.
template <class Group>
Group& GroupOf(std::vector<Group>& groups, const Pen& pen) {
  for (auto group = groups.rbegin(); group != groups.rend(); ++group)
    if (Same(group->pen, pen)) return *group;
  groups.push_back({pen, {}});
  return groups.back();
}

QPointF ToQt(Point p) {
  return {p.x, p.y};
}

}  // namespace

void FigurePicture::Line(Point from, Point to, const Pen& pen) {
  GroupOf(lines_, pen).lines.emplace_back(ToQt(from), ToQt(to));
}

void FigurePicture::Circle(Point centre, double radius, const Pen& pen, bool filled) {
  GroupOf(discs_, pen).discs.push_back({ToQt(centre), radius, filled});
}

void FigurePicture::Text(Point origin, std::string_view text, double height, double angle, Rgb colour) {
  const auto wanted = [&](const Texts& group) {
    return group.height == height && group.angle == angle && group.colour == colour;
  };
  if (texts_.empty() || !wanted(texts_[lastText_])) {
    const auto [place, isNew] = groupOfText_.try_emplace({height, angle, colour}, texts_.size());
    if (isNew) texts_.push_back({height, angle, colour, {}});
    lastText_ = place->second;
  }
  texts_[lastText_].texts.push_back({ToQt(origin), std::string(text)});
}

void FigurePicture::Shade(std::span<const Point> polygon, Rgb colour) {
  const std::size_t begin = corners_.size();
  for (const Point& corner : polygon) corners_.push_back(ToQt(corner));
  tints_.push_back({colour, begin, corners_.size()});
}

}  // namespace zorlan
