// The kinds of figure, and what tells them apart wherever one is shown.
#pragma once

namespace zorlan {

/// Kinds of figure, as `DiagramType` has them. The two ratio figures belong to the openers `DesListS`,
/// `DesListRC`.
enum FigureKind : int {
  kModelFigure,
  kLoadCheck,
  kDisplacementFigure,
  kAxialFigure,
  kShearFigure,
  kMomentFigure,
  kSteelRatioFigure,
  kRcRatioFigure,
};

/// What a figure is drawn from: the tables alone, the results of the analysis besides, or those of a design.
/// Each has display options of its own.
enum class FigureSource { Tables, Analysis, Design };

constexpr FigureSource SourceOf(int kind) {
  if (kind == kSteelRatioFigure || kind == kRcRatioFigure) return FigureSource::Design;
  return kind >= kDisplacementFigure && kind <= kMomentFigure ? FigureSource::Analysis : FigureSource::Tables;
}

/// Whether a kind of figure is of one load case.
constexpr bool HasLoadCase(int kind) {
  return kind >= kLoadCheck && kind <= kMomentFigure;
}

}  // namespace zorlan
