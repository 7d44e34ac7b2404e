#include "aluframe/document/style.h"

namespace aluframe::document {

const std::string_view style_sheet = R"css(
:root { color-scheme: light; }
html { background: #e9ebee; }
body { max-width: 190mm; margin: 8mm auto; padding: 14mm 12mm; background: #fff; color: #1a1a1a;
  font: 10.5pt/1.45 "Noto Serif", "Source Serif 4", Georgia, "Times New Roman", "Noto Serif CJK SC",
    "Source Han Serif SC", "Songti SC", SimSun, serif; }
h1, h2, h3, h4, th, caption, figcaption, nav, .kind, .notice, .verdict {
  font-family: "Noto Sans", "Helvetica Neue", Arial, "Noto Sans CJK SC", "Source Han Sans SC",
    "PingFang SC", "Microsoft YaHei", sans-serif; }
h1 { font-size: 22pt; line-height: 1.2; margin: 2mm 0 6mm; }
h2 { font-size: 16pt; margin: 12mm 0 4mm; border-bottom: 0.4mm solid #203040; padding-bottom: 1mm; }
h3 { font-size: 12.5pt; margin: 8mm 0 3mm; }
h4 { font-size: 10.5pt; margin: 6mm 0 2mm; }
h1, h2, h3, h4, h3 + p, h4 + p, caption, thead { break-after: avoid; }
h1, h2, h3, h4 { overflow-wrap: anywhere; }
p { margin: 0 0 2.5mm; }
a { color: #0060a8; text-decoration: none; }
a:hover { text-decoration: underline; }
.kind { font-size: 11pt; color: #4a5560; letter-spacing: 0.02em; }
.description { white-space: pre-line; }
.notice { border: 0.4mm solid #c24a00; padding: 2mm 3mm; font-weight: bold; overflow-wrap: anywhere; }
.verdict { font-size: 12pt; font-weight: bold; border-left: 1.5mm solid #0060a8; padding: 1.5mm 3mm;
  background: #f1f5f9; margin-top: 5mm; }
.verdict.over { border-color: #c24a00; background: #fdf1e9; }
nav ul { list-style: none; padding-left: 0; margin: 0; }
nav ul ul { padding-left: 6mm; columns: 2; column-gap: 8mm; margin-bottom: 2mm; font-size: 9.5pt; }
nav li { break-inside: avoid; }
table { word-break: keep-all; border-collapse: collapse; width: 100%; margin: 2mm 0 6mm; font-size: 8.5pt; line-height: 1.3;
  font-variant-numeric: tabular-nums lining-nums; }
caption { text-align: left; font-weight: bold; font-size: 9pt; padding: 1mm 0; caption-side: top; }
thead { display: table-header-group; }
thead th { border-bottom: 0.3mm solid #203040; border-top: 0.3mm solid #203040; vertical-align: bottom;
  background: #f1f3f5; }
th, td { padding: 0.6mm 1.2mm; text-align: left; vertical-align: top; overflow-wrap: break-word; }
tbody th { font-weight: normal; font-family: inherit; }
tbody tr { border-bottom: 0.1mm solid #c8ced4; break-inside: avoid; }
th.number, td.number { text-align: right; }
td.number { white-space: nowrap; }
td.over { color: #a83c00; font-weight: bold; }
table.wide { font-size: 7pt; }
table.wide th, table.wide td { padding: 0.4mm 0.6mm; }
table.facts { font-size: 9.5pt; }
table.facts th { width: 38mm; color: #4a5560; }
figure { margin: 3mm 0 6mm; break-inside: avoid; }
figure svg { display: block; box-sizing: border-box; max-width: 100%; height: auto; }
figure.picture svg { max-height: 108mm; border: 0.1mm solid #c8ced4; }
figure.histogram svg { max-width: 150mm; }
figcaption { font-size: 8.5pt; color: #4a5560; padding-top: 1mm; }
.sketches { display: flex; flex-wrap: wrap; gap: 4mm; }
figure.sketch { margin: 0; width: 52mm; }
figure.sketch svg { width: 100%; max-height: 62mm; }
@page { size: A4; margin: 16mm 14mm 18mm;
  @bottom-right { content: counter(page) " / " counter(pages); font: 8pt sans-serif; color: #4a5560; } }
@media print {
  html, body { background: #fff; }
  body { max-width: none; margin: 0; padding: 0; font-size: 10pt; }
  a { color: inherit; }
  .chapter, nav, .derived + .derived > h4 { break-before: page; }
  h2 { margin-top: 0; }
}
)css";

}  // namespace aluframe::document
