#include "apps/desktop/model_tree.h"

#include <QApplication>
#include <QHeaderView>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <set>

#include "aluframe/texts/text.h"
#include "apps/desktop/ui_texts.h"
#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

ModelTree::ModelTree(Workspace& workspace) : workspace_(workspace), view_(new QTreeView) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(view_);
  view_->setModel(&tree_);
  view_->setAccessibleName(ui_text(texts::translatable("Model")));
  view_->setUniformRowHeights(true);
  view_->setEditTriggers(QTreeView::NoEditTriggers);
  view_->setAllColumnsShowFocus(true);
  view_->setIndentation(fontMetrics().averageCharWidth() * 2);
  view_->header()->setStretchLastSection(false);
  view_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  view_->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
  connect(view_, &QTreeView::clicked, this, [this](const QModelIndex& index) { select(index); });
  connect(view_, &QTreeView::activated, this, [this](const QModelIndex& index) {
    // A double click has been a click before.
    if (QApplication::mouseButtons() == Qt::NoButton) select(index);
  });
  connect(&workspace, &Workspace::document_changed, this, [this] { grow(); });
  connect(&workspace, &Workspace::edited, this, [this] { grow(); });
  connect(&workspace, &Workspace::results_changed, this, [this] { grow(); });
  connect(&workspace, &Workspace::selection_changed, this, [this] { mark_holding(); });
  grow();
}

QSize ModelTree::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 44, fontMetrics().height() * 24};
}

void ModelTree::grow() {
  // Lines that were open stay open: groups are few, and stand in a fixed order.
  std::set<QString> open;
  const bool is_first = tree_.entries().empty();
  for (std::size_t place = 1; place < tree_.entries().size(); ++place) {
    if (tree_.entries()[place].parent != 0) continue;
    if (view_->isExpanded(tree_.index_of(place))) open.insert(tree_.entries()[place].text);
  }
  tree_.show_entries(tree_entries(workspace_));
  if (tree_.entries().empty()) return;
  view_->expand(tree_.index_of(0));
  constexpr std::size_t few = 12;  // lines, that may be seen from the beginning
  for (const std::size_t group : tree_.entries()[0].children) {
    const TreeEntry& entry = tree_.entries()[group];
    const bool is_wanted = is_first ? entry.children.size() <= few : open.contains(entry.text);
    const bool is_results = !entry.count;
    if (is_wanted || is_results) view_->expand(tree_.index_of(group));
  }
  mark_holding();
}

void ModelTree::select(const QModelIndex& index) {
  const TreeEntry& entry = tree_.entry(index);
  if (!entry.has_elements) return;
  const bool adds = (QApplication::keyboardModifiers() & Qt::ControlModifier) != 0;
  workspace_.select(entry.elements, adds ? Picking::add : Picking::replace);
}

void ModelTree::mark_holding() {
  const std::set<model::Number>& selection = workspace_.selection();
  std::vector<bool> holding(tree_.entries().size(), false);
  for (std::size_t place = 1; place < holding.size() && !selection.empty(); ++place) {
    const TreeEntry& entry = tree_.entries()[place];
    // The count and the first element rule out nearly all of them.
    holding[place] = entry.elements.size() >= selection.size() &&
                     std::ranges::binary_search(entry.elements, *selection.begin()) &&
                     std::ranges::includes(entry.elements, selection);
  }
  tree_.mark(std::move(holding));
}

}  // namespace aluframe::desktop
