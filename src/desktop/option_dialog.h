// The three dialogs on how the figures look: of the model figure, of the analysis results, of the design
// figures.
#pragma once

#include <memory>
#include <QDialog>

namespace zorlan {

enum class OptionSet { Model, Analysis, Design };

/// The set that a kind of figure (FigureKind) is drawn by.
OptionSet OptionSetOf(int kind);

class OptionTable;
class ResultOptions;

class OptionDialog : public QDialog {
  Q_OBJECT
 public:
  OptionDialog(OptionSet set, QWidget* parent);

  /// Puts the set in force and keeps it.
  void accept() override;

 signals:
  /// "表示範囲設定".
  void rangeAsked();

 private:
  enum class Source { InForce, Defaults };
  void Fill(Source source);
  void Store();
  void Reset();

  OptionSet set_;
  OptionTable* table_;
  ResultOptions* results_ = nullptr;  // of the analysis set alone
};

}  // namespace zorlan
