// A model folder whose deck is analysed, with the messages that the user would have seen and the results by
// case and row.
#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "analysis/external_road.h"
#include "analysis/result_files.h"
#include "analysis/static_analysis.h"
#include "base/host.h"
#include "support/model_folder.h"

namespace zorlan::test {

class AnalysisTest : public ModelFolderTest {
 protected:
  AnalysisTest() {
    Host host;
    host.message = [this](std::string_view text, std::string_view title) {
      told_.push_back(std::string(title) + ": " + std::string(text));
    };
    host.runAndWait = [this](const std::string& program, const std::string& folder) {
      return companion_(program, folder);
    };
    InstallHost(std::move(host));
    ProgramFolder = ZORLAN_COMPANION_FOLDER;
  }
  ~AnalysisTest() override { InstallHost({}); }

  using Companion = std::function<ProgramEnd(const std::string& program, const std::string& folder)>;
  /// What stands in for the companion program from now on.
  void ReplaceCompanion(Companion companion) { companion_ = std::move(companion); }
  /// The built one.
  static ProgramEnd RunCompanion(const std::string& program, const std::string& folder) {
    const int status = std::system(("cd '" + folder + "' && exec '" + program + "' 2>/dev/null").c_str());
    if (WIFSIGNALED(status)) return {ProgramEnd::How::Killed, WTERMSIG(status), ""};
    return {ProgramEnd::How::Exited, WEXITSTATUS(status), ""};
  }

  /// Writes the deck (LF, UTF-8) and analyses it.
  bool Analyse(std::string_view deck) {
    WriteDeck(deck);
    return AnalyseFile();
  }
  /// Analyses the deck that stands there; loads the results of a success.
  bool AnalyseFile() {
    told_.clear();
    if (RunStaticAnalysis() == kFalse) return false;
    cases_ = CalcModel.MaxLoadCase;
    nodes_ = CalcModel.NodeCount;
    elements_ = CalcModel.ElemCount;
    displacements_ = ReadReals(ResultFolder() + "FT021", static_cast<std::size_t>(cases_ * nodes_ * 3));
    forces_ =
        ReadReals(ResultFolder() + "FT031", static_cast<std::size_t>(cases_ * elements_ * kForcesPerElement));
    reactions_ = ReadReactions(ResultFolder());
    return true;
  }

  /// Everything that was told, "title: text".
  const std::vector<std::string>& Told() const { return told_; }

  /// Displacement d (0 to 2) of a node row, from 1.
  double U(int row, int d, int loadCase = 1) const {
    return displacements_[static_cast<std::size_t>(((loadCase - 1) * nodes_ + row - 1) * 3 + d)];
  }
  /// Member force of an element row, position 1 to 7.
  double F(int row, int position, int loadCase = 1) const {
    return forces_[ForcePlace(loadCase, elements_, row, position)];
  }
  /// Reaction d of a node number; NaN if the node has none.
  double R(int node, int d, int loadCase = 1) const {
    for (std::size_t s = 0; s < reactions_.nodes.size(); ++s)
      if (reactions_.nodes[s] == node)
        return reactions_.values[(static_cast<std::size_t>(loadCase - 1) * reactions_.nodes.size() + s) * 3 +
                                 static_cast<std::size_t>(d)];
    return std::numeric_limits<double>::quiet_NaN();
  }
  const std::vector<double>& Displacements() const { return displacements_; }
  const std::vector<double>& Forces() const { return forces_; }
  const Reactions& AllReactions() const { return reactions_; }

 private:
  Companion companion_ = RunCompanion;
  std::vector<std::string> told_;
  int cases_ = 0, nodes_ = 0, elements_ = 0;
  std::vector<double> displacements_, forces_;
  Reactions reactions_;
};

}  // namespace zorlan::test
