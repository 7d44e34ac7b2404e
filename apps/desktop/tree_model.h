#pragma once

#include <QAbstractItemModel>
#include <vector>

#include "apps/desktop/tree_entries.h"

namespace aluframe::desktop {

/// The lines of the model's tree for a view, what they count in a second column. Lines that hold
/// the whole selection are bold.
class TreeModel : public QAbstractItemModel {
 public:
  void show_entries(std::vector<TreeEntry> entries);
  /// @param holding by place of the line
  void mark(std::vector<bool> holding);
  const std::vector<TreeEntry>& entries() const { return entries_; }
  const TreeEntry& entry(const QModelIndex& index) const { return entries_[place(index)]; }
  QModelIndex index_of(std::size_t place) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  static std::size_t place(const QModelIndex& index) { return index.internalId(); }

  std::vector<TreeEntry> entries_;
  std::vector<bool> holding_;
};

}  // namespace aluframe::desktop
