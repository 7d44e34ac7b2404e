#include "apps/desktop/tree_model.h"

#include <QFont>
#include <utility>

#include "aluframe/texts/text.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

using texts::translatable;

namespace {

QString what_a_click_does(std::size_t elements) {
  return QString::fromStdString(
      texts::counted(elements, translatable("{} element: click to select it, with Ctrl to add it"),
                     translatable("{} elements: click to select them, with Ctrl to add them")));
}

}  // namespace

void TreeModel::show_entries(std::vector<TreeEntry> entries) {
  beginResetModel();
  entries_ = std::move(entries);
  holding_.assign(entries_.size(), false);
  endResetModel();
}

void TreeModel::mark(std::vector<bool> holding) {
  if (entries_.empty() || holding == holding_) return;
  holding_ = std::move(holding);
  // Views ask again for what they show, be it of one line or of all.
  Q_EMIT layoutChanged();
}

QModelIndex TreeModel::index_of(std::size_t place) const {
  return createIndex(static_cast<int>(entries_[place].row), 0, quintptr{place});
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (!parent.isValid()) return createIndex(row, column, quintptr{0});
  return createIndex(row, column, quintptr{entry(parent).children[static_cast<std::size_t>(row)]});
}

QModelIndex TreeModel::parent(const QModelIndex& index) const {
  if (!index.isValid() || place(index) == 0) return {};
  return index_of(entry(index).parent);
}

int TreeModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return entries_.empty() ? 0 : 1;
  return parent.column() > 0 ? 0 : static_cast<int>(entry(parent).children.size());
}

int TreeModel::columnCount(const QModelIndex&) const {
  return 2;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
  const TreeEntry& of = entry(index);
  switch (role) {
    case Qt::DisplayRole:
      if (index.column() == 0) return of.text;
      return of.count ? QVariant(static_cast<qulonglong>(*of.count)) : QVariant();
    case Qt::ToolTipRole:
      return of.has_elements ? of.text + u'\n' + what_a_click_does(of.elements.size()) : of.text;
    case Qt::TextAlignmentRole:
      return QVariant::fromValue((index.column() == 0 ? Qt::AlignLeft : Qt::AlignRight) |
                                 Qt::AlignVCenter);
    case Qt::FontRole: {
      if (!holding_[place(index)]) return {};
      QFont bold;
      bold.setBold(true);
      return bold;
    }
    default:
      return {};
  }
}

QVariant TreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) {
    return ui_text(section == 0 ? translatable("Model") : translatable("Count"));
  }
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue((section == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
  }
  return {};
}

}  // namespace aluframe::desktop
