#include "desktop/figure_files.h"

#include <algorithm>

#include "model/model_state.h"
#include "model/table_file.h"

namespace zorlan {

void FigureFiles::Look() {
  name_ = ModelBaseName();
  files_.clear();
  const auto look = [this](const std::string& path) { files_.emplace_back().Look(path); };
  for (const TableName& table : kTables) look(WorkPath + std::string(table.key));
  for (const char* const result : {"FT021", "FT031", "SIG_S", "SIG_RC"}) look(AnalysisPath + result);
}

bool FigureFiles::Changed() const {
  return files_.empty() || name_ != ModelBaseName() ||
         std::ranges::any_of(files_, [](const ShownFile& file) { return file.Changed(); });
}

}  // namespace zorlan
