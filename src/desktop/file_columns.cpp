#include "desktop/file_columns.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <QCoreApplication>
#include <QDateTime>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QLocale>
#include <QTranslator>
#include <QTreeView>

namespace zorlan {
namespace {

constexpr int kCellRoom = 16;               // pixels beside a text
enum Place { kName, kSize, kType, kDate };  // the columns of the toolkit's list

/// The toolkit writes sizes and dates as the system's locale has them, whatever language its words are in.
class FileColumns : public QIdentityProxyModel {
 public:
  using QIdentityProxyModel::QIdentityProxyModel;

  QVariant data(const QModelIndex& index, int role) const override {
    const auto* const files = qobject_cast<const QFileSystemModel*>(sourceModel());
    if (role == Qt::DisplayRole && files != nullptr && index.isValid()) {
      const QModelIndex file = mapToSource(index);
      if (index.column() == kDate) return QLocale().toString(files->lastModified(file), QLocale::ShortFormat);
      if (index.column() == kSize && !files->isDir(file))
        return QLocale().formattedDataSize(files->size(file));
    }
    return QIdentityProxyModel::data(index, role);
  }
};

struct Word {
  const char *source, *japanese;
};
constexpr std::array kWords = {
    Word{"Folder", "フォルダ"},      Word{"File Folder", "フォルダ"}, Word{"File", "ファイル"},
    Word{"%1 File", "%1 ファイル"},  Word{"Drive", "ドライブ"},       Word{"Shortcut", "ショートカット"},
    Word{"Alias", "ショートカット"},
};

class MissingWords : public QTranslator {
 public:
  using QTranslator::QTranslator;
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char*, int) const override {
    if (std::strcmp(context, "QAbstractFileIconProvider") != 0 && std::strcmp(context, "QFileDialog") != 0)
      return {};
    for (const Word& word : kWords)
      if (std::strcmp(source, word.source) == 0) return QString::fromUtf8(word.japanese);
    return {};
  }
};

}  // namespace

void ShowJapaneseColumns(QFileDialog& dialog) {
  if (dialog.proxyModel() != nullptr) return;
  dialog.setProxyModel(new FileColumns(&dialog));
  auto* const list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
  if (list == nullptr) return;
  const int date = list->fontMetrics().horizontalAdvance(QStringLiteral("2000/00/00 00:00")) + kCellRoom;
  list->header()->resizeSection(kDate, std::max(date, list->header()->sectionSize(kDate)));
}

void InstallMissingWords(QObject* owner) {
  QCoreApplication::installTranslator(new MissingWords(owner));
}

}  // namespace zorlan
