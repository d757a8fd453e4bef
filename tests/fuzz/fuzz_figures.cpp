// Any bytes as the small files of the figures: a drawing list that becomes a DXF file, display options, the
// choice of a batch, design ratios. Whatever the bytes are, they end with an answer or a Fault, and what was
// read is read again as it was written.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/cp932.h"
#include "base/fault.h"
#include "graphics/dxf.h"
#include "graphics/option_figures.h"
#include "graphics/options.h"
#include "graphics/ratio_files.h"
#include "output/batch_print.h"

namespace zorlan {
namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

void RunDrawingList(std::string_view text) try {
  const std::string dxf = DxfOfList(text);
  Require(dxf.ends_with("0\r\nEOF\r\n"));
  Require(std::ranges::count(dxf, '\n') % 2 == 0);  // pairs
} catch (const Fault&) {                            // words for the user are a good end
}

void RunOptions(std::string_view text) {
  const ModelOptions model = ParseModelOptions(text);
  const std::string written = ModelOptionsText(model);  // limits have 15 digits there
  Require(ModelOptionsText(ParseModelOptions(written)) == written);
  const DesignOptions design = ParseDesignOptions(text);
  Require(ParseDesignOptions(DesignOptionsText(design)) == design);
  for (const AnalysisOptions& analysis :
       {ParseAnalysisOptions(text), ParseOlderAnalysisOptions(text, DefaultAnalysisOptions())})
    Require(ParseAnalysisOptions(AnalysisOptionsText(analysis)) == analysis);
  FigureOptionsOf(model);
  FigureOptionsOf(design);
}

void RunSelection(std::string_view text) {
  const FigureSelection selection = ParseSelection(text);
  Require(ParseSelection(SelectionText(selection)) == selection);
  for (const SelectedFigure& figure : SelectedFigures(selection)) Require(figure.loadCase >= 1);
}

}  // namespace
}  // namespace zorlan

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = zorlan::Utf8FromCp932({reinterpret_cast<const char*>(data), size});
  zorlan::RunDrawingList(text);
  zorlan::RunOptions(text);
  zorlan::RunSelection(text);
  constexpr std::size_t kMembers = 7;
  zorlan::ParseSteelRatios(text, kMembers);
  zorlan::ParseRcRatios(text, kMembers);
  return 0;
}
