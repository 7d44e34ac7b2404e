#include "apps/desktop/detail_panel.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "aluframe/texts/text.h"
#include "apps/desktop/check_list.h"
#include "apps/desktop/element_head.h"
#include "apps/desktop/force_chart.h"
#include "apps/desktop/section_view.h"
#include "apps/desktop/step_tree.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

using texts::translatable;

DetailPanel::DetailPanel(Workspace& workspace)
    : workspace_(workspace),
      prepared_(workspace),
      head_(new ElementHead(workspace)),
      checks_(new CheckList(workspace)),
      steps_(new StepTree(workspace, prepared_)),
      tabs_(new QTabWidget) {
  tabs_->addTab(checks_, ui_text(translatable("Checks")));
  tabs_->addTab(steps_, ui_text(translatable("Steps")));
  tabs_->addTab(new ForceChart(workspace, prepared_), ui_text(translatable("Forces")));
  tabs_->addTab(new SectionView(workspace), ui_text(translatable("Section")));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(head_);
  layout->addWidget(tabs_, 1);
  layout->addStretch(0);
  connect(checks_, &CheckList::wanted, this, [this](int item) {
    steps_->choose(item);
    tabs_->setCurrentWidget(steps_);
  });
  const auto refresh_all = [this] { refresh(); };
  connect(&workspace_, &Workspace::document_changed, this, refresh_all);
  connect(&workspace_, &Workspace::edited, this, refresh_all);
  connect(&workspace_, &Workspace::results_changed, this, refresh_all);
  connect(&workspace_, &Workspace::selection_changed, this, refresh_all);
  connect(&workspace_, &Workspace::visibility_changed, this, [this] { head_->refresh(); });
  refresh();
}

void DetailPanel::refresh() {
  head_->refresh();
  const bool is_there = workspace_.document() != nullptr && workspace_.current().has_value();
  tabs_->setVisible(is_there);
  for (int i = 0; i < tabs_->count(); ++i) {
    static_cast<DetailPart*>(tabs_->widget(i))->tell_changed();
  }
}

QSize DetailPanel::sizeHint() const {
  return {26 * fontMetrics().height(), 40 * fontMetrics().height()};
}

}  // namespace aluframe::desktop
