#include "desktop/folder_tree_view.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "desktop/icons.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

// What an item keeps beside its text.
constexpr int kPath = Qt::UserRole, kKind = Qt::UserRole + 1, kFilled = Qt::UserRole + 2;

QIcon IconOf(NodeKind kind) {
  switch (kind) {
    case NodeKind::Folder:
      return FolderIcon();
    case NodeKind::Project:
      return ProjectIcon();
    case NodeKind::Model:
      return LeafIcon();
  }
  return {};
}

std::string PathOf(const QTreeWidgetItem* item) {
  return FromQt(item->data(0, kPath).toString());
}

TreeNode NodeOf(const QTreeWidgetItem* item) {
  return {static_cast<NodeKind>(item->data(0, kKind).toInt()), FromQt(item->text(0)), PathOf(item)};
}

QTreeWidgetItem* NewItem(const QString& text, const QIcon& icon, NodeKind kind, const std::string& path) {
  auto* const item = new QTreeWidgetItem({text});
  item->setIcon(0, icon);
  item->setData(0, kPath, ToQt(path));
  item->setData(0, kKind, static_cast<int>(kind));
  item->setToolTip(0, ToQt(path));
  item->setChildIndicatorPolicy(kind == NodeKind::Model ? QTreeWidgetItem::DontShowIndicator
                                                        : QTreeWidgetItem::ShowIndicator);
  return item;
}

}  // namespace

FolderTreeView::FolderTreeView(Leaves leaves, bool models, QWidget* parent)
    : QTreeWidget(parent), leaves_(leaves), models_(models) {
  setObjectName(QStringLiteral("tree"));
  header()->hide();
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);  // long names scroll
  setUniformRowHeights(true);
  setIndentation(14);
  for (const Drive& drive : ListDrives())
    addTopLevelItem(NewItem(QStringLiteral("%1  [%2]").arg(ToQt(drive.path), ToQt(drive.type)), DriveIcon(),
                            NodeKind::Folder, drive.path));
  connect(this, &QTreeWidget::itemExpanded, this, &FolderTreeView::Fill);
  connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (item != nullptr) emit picked(NodeOf(item));
  });
  connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
    if (NodeOf(item).kind == NodeKind::Model) emit opened(NodeOf(item));
  });
}

void FolderTreeView::Fill(QTreeWidgetItem* item) {
  if (item->data(0, kFilled).toBool()) return;
  item->setData(0, kFilled, true);
  QList<QTreeWidgetItem*> children;
  for (const TreeNode& node : ListFolder(PathOf(item), leaves_))
    if (models_ || node.kind != NodeKind::Model)
      children.append(NewItem(ToQt(node.name), IconOf(node.kind), node.kind, node.path));
  item->addChildren(children);
  if (children.isEmpty()) item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicator);
}

void FolderTreeView::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter) return QTreeWidget::keyPressEvent(event);
  QTreeWidgetItem* const item = currentItem();
  const bool opens = item != nullptr && !item->isExpanded() &&
                     item->childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator;
  if (opens) item->setExpanded(true);
  event->setAccepted(opens);
}

void FolderTreeView::Reveal(const std::string& path) {
  // The drive with the longest path leads to it.
  QTreeWidgetItem* item = nullptr;
  for (int i = 0; i < topLevelItemCount(); ++i) {
    const std::string drive = PathOf(topLevelItem(i));
    if (path.starts_with(drive) && (item == nullptr || drive.size() > PathOf(item).size()))
      item = topLevelItem(i);
  }
  if (item == nullptr) return;
  for (bool deeper = true; deeper;) {
    deeper = false;
    if (NodeOf(item).kind == NodeKind::Model || PathOf(item) == path) break;
    item->setExpanded(true);
    for (int i = 0; i < item->childCount() && !deeper; ++i) {
      QTreeWidgetItem* const child = item->child(i);
      const std::string childPath = PathOf(child);
      const bool folder = !childPath.empty() && childPath.back() == '/';
      deeper = folder ? path.starts_with(childPath) : path == childPath;
      if (deeper) item = child;
    }
  }
  if (NodeOf(item).kind != NodeKind::Model) item->setExpanded(true);
  setCurrentItem(item);
  scrollToItem(item, QAbstractItemView::PositionAtCenter);
}

TreeNode FolderTreeView::Current() const {
  return currentItem() == nullptr ? TreeNode{NodeKind::Folder, {}, {}} : NodeOf(currentItem());
}

}  // namespace zorlan
