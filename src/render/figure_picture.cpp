#include "render/figure_picture.h"

namespace zorlan {
namespace {

bool Same(const Pen& a, const Pen& b) {
  return a.colour == b.colour && a.style == b.style && a.width == b.width;
}

/// The group of a pen; pens are few, and the one used last is mostly meant again.
template <class Group>
Group& GroupOf(ItemGroups<Group>& groups, const Pen& pen) {
  const std::span<Group> inUse = groups.InUse();
  for (auto group = inUse.rbegin(); group != inUse.rend(); ++group)
    if (Same(group->pen, pen)) return *group;
  Group& added = groups.Add();
  added.pen = pen;
  return added;
}

QPointF ToQt(Point p) {
  return {p.x, p.y};
}

}  // namespace

void FigurePicture::Clear(const Surface& surface) {
  surface_ = surface;
  tints_.clear();
  corners_.clear();
  lines_.Clear();
  discs_.Clear();
  texts_.Clear();
  groupOfText_.clear();
}

void FigurePicture::Line(Point from, Point to, const Pen& pen) {
  GroupOf(lines_, pen).items.emplace_back(ToQt(from), ToQt(to));
}

void FigurePicture::Circle(Point centre, double radius, const Pen& pen, bool filled) {
  GroupOf(discs_, pen).items.push_back({ToQt(centre), radius, filled});
}

void FigurePicture::Text(Point origin, std::string_view text, double height, double angle, Rgb colour) {
  const auto wanted = [&](const Texts& group) {
    return group.height == height && group.angle == angle && group.colour == colour;
  };
  if (groupOfText_.empty() || !wanted(texts_.InUse()[lastText_])) {
    const std::size_t next = texts_.InUse().size();
    const auto [place, isNew] = groupOfText_.try_emplace({height, angle, colour}, next);
    if (isNew) {
      Texts& added = texts_.Add();
      added.height = height;
      added.angle = angle;
      added.colour = colour;
    }
    lastText_ = place->second;
  }
  texts_.InUse()[lastText_].items.push_back({ToQt(origin), std::string(text)});
}

void FigurePicture::Shade(std::span<const Point> polygon, Rgb colour) {
  const std::size_t begin = corners_.size();
  for (const Point& corner : polygon) corners_.push_back(ToQt(corner));
  tints_.push_back({colour, begin, corners_.size()});
}

}  // namespace zorlan
