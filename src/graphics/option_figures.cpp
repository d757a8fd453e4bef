#include "graphics/option_figures.h"

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <variant>

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

template <std::size_t N>
FigureOptions FigureOf(const std::array<OptionRow, N>& forms, const OptionRows<N>& rows) {
  FigureOptions figure;
  for (std::size_t n = 0; n < N; ++n) {
    const OptionTarget& target = forms[n].target;
    if (const auto* const text = std::get_if<TextOption FigureOptions::*>(&target))
      figure.** text = TextOf(forms[n], rows[n]);
    else if (const auto* const line = std::get_if<LineOption FigureOptions::*>(&target))
      figure.** line = LineOf(forms[n], rows[n]);
    else if (const auto* const number = std::get_if<std::size_t>(&target))
      figure.ratioClass[*number] = ClassOf(forms[n], rows[n]);
  }
  return figure;
}

int DecimalsOf(const std::string& text) {
  return static_cast<int>(ReadReal(text));
}

}  // namespace

FigureOptions FigureOptionsOf(const ModelOptions& options) {
  return FigureOf(kModelRows, options.rows);
}

FigureOptions FigureOptionsOf(const DesignOptions& options) {
  return FigureOf(kDesignRows, options.rows);
}

FigureOptions FigureOptionsOf(const AnalysisOptions& options) {
  FigureOptions figure = FigureOf(kAnalysisRows, options.rows);
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
  switch (SourceOf(kind)) {
    case FigureSource::Analysis:
      return FigureOptionsOf(DispOptionAna);
    case FigureSource::Design:
      return FigureOptionsOf(DispOptionDesgn);
    default:
      return FigureOptionsOf(DispOption);
  }
}

}  // namespace zorlan
