#include "desktop/figure_files.h"

#include <algorithm>
#include <string>

#include "model/model_state.h"
#include "model/table_file.h"

namespace zorlan {

void FigureFiles::Look() {
  files_.clear();
  const auto look = [this](const std::string& path) { files_.emplace_back().Look(path); };
  for (const TableName& table : kTables) look(WorkPath + std::string(table.key));
  for (const char* const result : {"FT021", "FT031", "SIG_S", "SIG_RC"}) look(AnalysisPath + result);
}

bool FigureFiles::Changed() const {
  return std::ranges::any_of(files_, [](const ShownFile& file) { return file.Changed(); });
}

}  // namespace zorlan
