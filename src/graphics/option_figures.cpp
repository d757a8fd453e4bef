#include "graphics/option_figures.h"

#include <limits>

#include "base/number.h"
#include "graphics/frame_figure.h"

namespace zorlan {
namespace {

/// The field of a part; empty where the row has none.
std::string PartOf(const OptionRow& form, std::string_view row, OptionPart part) {
  for (std::size_t n = 0; n < form.parts.size(); ++n)
    if (form.parts[n] == part) return OptionField(row, static_cast<int>(n) + 1);
  return {};
}

TextOption TextOf(const OptionRow& form, std::string_view row) {
  TextOption text;
  text.visible = PartOf(form, row, OptionPart::Visible) == kVisibleChoices[0];
  if (const auto font = OptionFontOf(PartOf(form, row, OptionPart::Font))) text.points = font->points;
  text.colour = OptionColour(PartOf(form, row, OptionPart::Colour)).value_or(kBlack);
  text.mark = PartOf(form, row, OptionPart::Mark) == "1";
  return text;
}

LineOption LineOf(const OptionRow& form, std::string_view row) {
  LineOption line;
  line.visible = PartOf(form, row, OptionPart::Visible) == kVisibleChoices[0];
  line.width = OptionWidth(PartOf(form, row, OptionPart::Width)).value_or(1);
  line.style = OptionStyle(PartOf(form, row, OptionPart::Style)).value_or(LineStyle::Solid);
  line.colour = OptionColour(PartOf(form, row, OptionPart::Colour)).value_or(kBlack);
  return line;
}

RatioClass ClassOf(const OptionRow& form, std::string_view row) {
  const std::string upper = PartOf(form, row, OptionPart::Upper);
  return {ReadReal(PartOf(form, row, OptionPart::Lower)),
          upper.empty() ? std::numeric_limits<double>::infinity() : ReadReal(upper), LineOf(form, row)};
}

/// A set's row `n`, from 1, taken apart.
class SetReader {
 public:
  SetReader(std::span<const OptionRow> forms, std::span<const std::string> rows)
      : forms_(forms), rows_(rows) {}
  TextOption Text(std::size_t n) const { return TextOf(forms_[n - 1], rows_[n - 1]); }
  LineOption Line(std::size_t n) const { return LineOf(forms_[n - 1], rows_[n - 1]); }
  RatioClass Class(std::size_t n) const { return ClassOf(forms_[n - 1], rows_[n - 1]); }

 private:
  std::span<const OptionRow> forms_;
  std::span<const std::string> rows_;
};

int DecimalsOf(const std::string& text) {
  return static_cast<int>(ReadReal(text));
}

}  // namespace

FigureOptions FigureOptionsOf(const ModelOptions& options) {
  const SetReader set(kModelRows, options.rows);
  FigureOptions figure;
  figure.nodeNumber = set.Text(1);
  figure.elementNumber = set.Text(2);
  figure.node = set.Line(3);
  figure.element = set.Line(4);
  figure.nodalLoad = set.Line(5);
  figure.elementLoad = set.Line(6);
  figure.loadValue = set.Text(7);
  figure.sectionNumber = set.Text(8);
  return figure;
}

FigureOptions FigureOptionsOf(const DesignOptions& options) {
  const SetReader set(kDesignRows, options.rows);
  FigureOptions figure;
  figure.nodeNumber = set.Text(1);
  figure.elementNumber = set.Text(2);
  figure.node = set.Line(3);
  figure.element = set.Line(4);
  for (std::size_t number = 0; number < figure.ratioClass.size(); ++number)
    figure.ratioClass[number] = set.Class(5 + number);
  figure.sectionNumber = set.Text(11);
  return figure;
}

FigureOptions FigureOptionsOf(const AnalysisOptions& options) {
  const SetReader set(kAnalysisRows, options.rows);
  FigureOptions figure;
  figure.nodeNumber = set.Text(1);
  figure.elementNumber = set.Text(2);
  figure.node = set.Line(3);
  figure.element = set.Line(4);
  figure.displacement = set.Line(5);
  figure.axialValue = set.Text(6);
  figure.shear = set.Line(7);
  figure.shearValue = set.Text(8);
  figure.moment = set.Line(9);
  figure.momentValue = set.Text(10);
  figure.sectionNumber = set.Text(11);
  figure.axial = {};  // solid and one dot wide
  figure.axialTension = options.tension;
  figure.axialCompression = options.compression;
  figure.HeightDisplacement = options.HeightDisplacement;
  figure.HeightNormal = options.HeightNormal;
  figure.HeightShear = options.HeightShear;
  figure.HeightMoment = options.HeightMoment;
  figure.DecimalsNormal = DecimalsOf(options.DecimalsNormal);
  figure.DecimalsShear = DecimalsOf(options.DecimalsShear);
  figure.DecimalsMoment = DecimalsOf(options.DecimalsMoment);
  figure.ScaleOverAllCases = options.ScaleOverAllCases;
  return figure;
}

FigureOptions FigureOptionsInForce(int kind) {
  switch (kind) {
    case kDisplacementFigure:
    case kAxialFigure:
    case kShearFigure:
    case kMomentFigure:
      return FigureOptionsOf(DispOptionAna);
    case kSteelRatioFigure:
    case kRcRatioFigure:
      return FigureOptionsOf(DispOptionDesgn);
    default:
      return FigureOptionsOf(DispOption);
  }
}

}  // namespace zorlan
