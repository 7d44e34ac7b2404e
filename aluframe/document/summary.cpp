#include "aluframe/document/summary.h"

#include "aluframe/document/figure.h"
#include "aluframe/document/governing_tables.h"
#include "aluframe/document/histogram.h"
#include "aluframe/document/reservations.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

void write_histogram(HtmlWriter& html, const run::DocumentContent& content) {
  std::vector<double> ratios;
  for (const run::ElementResult& element : content.elements) {
    const store::GoverningRow& worst = element.worst();
    if (run::was_judged(worst)) ratios.push_back(worst.governing.Ratio());
  }
  write_figure(html, "histogram", histogram_of(ratios),
               texts::translated("Governing ratios of {} elements", ratios.size()));
}

}  // namespace

Chapter summary_chapter(HtmlWriter& html, const run::DocumentContent& content) {
  const auto section = [&](const char* id, std::string title, auto write) {
    return Section{id, std::move(title), [&html, &content, write] { write(html, content); }};
  };
  return {
      "summary",
      texts::translated("Summary"),
      {section("distribution", texts::translated("Distribution of the ratios"), write_histogram),
       section("by-section", texts::translated("Ratios by section"), write_by_section),
       section("by-combination", texts::translated("Ratios by combination"), write_by_combination),
       section("by-element", texts::translated("Ratios by element"), write_by_element),
       section("remarks", texts::translated("Remarks and second opinion"), write_remarks),
       section("not-checked", texts::translated("What was not checked"), write_not_checked),
       section("buckling", texts::translated("Buckling of the frame"), write_buckling),
       section("in-use", texts::translated("Displacements in use"), write_serviceability),
       section("settings", texts::translated("Settings"), write_settings)}};
}

}  // namespace aluframe::document
