#include "apps/desktop/preferences.h"

#include <QApplication>
#include <QPalette>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>
#include <array>
#include <string>

namespace aluframe::desktop {

namespace {

struct Shade {
  QPalette::ColorRole role;
  const char* light;
  const char* dark;
};

constexpr std::array<Shade, 12> shades{{{QPalette::Window, "#f0f1f3", "#2b2d30"},
                                        {QPalette::WindowText, "#1b1d20", "#dfe1e5"},
                                        {QPalette::Base, "#ffffff", "#1e1f22"},
                                        {QPalette::AlternateBase, "#f5f6f8", "#26282b"},
                                        {QPalette::Text, "#1b1d20", "#dfe1e5"},
                                        {QPalette::PlaceholderText, "#858a93", "#8a8f98"},
                                        {QPalette::Button, "#e9ebee", "#36393d"},
                                        {QPalette::ButtonText, "#1b1d20", "#dfe1e5"},
                                        {QPalette::ToolTipBase, "#fffce5", "#36393d"},
                                        {QPalette::ToolTipText, "#1b1d20", "#dfe1e5"},
                                        {QPalette::Highlight, "#2f6fd0", "#2f65ca"},
                                        {QPalette::HighlightedText, "#ffffff", "#ffffff"}}};
constexpr const char* light_disabled = "#9a9fa8";
constexpr const char* dark_disabled = "#73777f";

QPalette palette_of(Theme theme) {
  const bool is_dark = theme == Theme::dark;
  // Shadows and edges follow from the colour of the window.
  QPalette palette{QColor(is_dark ? "#2b2d30" : "#f0f1f3")};
  for (const Shade& shade : shades) {
    palette.setColor(shade.role, QColor(is_dark ? shade.dark : shade.light));
  }
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(is_dark ? dark_disabled : light_disabled));
  }
  return palette;
}

QString theme_key() {
  return QStringLiteral("theme");
}
QString language_key() {
  return QStringLiteral("language");
}

void apply(Theme theme) {
  static const QPalette of_system = QApplication::palette();
  static const QString style_of_system = QApplication::style()->objectName();
  if (theme == Theme::system) {
    QApplication::setStyle(style_of_system);
    QApplication::setPalette(of_system);
    return;
  }
  // The one style that follows a palette in everything.
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(palette_of(theme));
}

}  // namespace

std::optional<texts::Language> preferred_language() {
  return texts::parse_language(QSettings().value(language_key()).toString().toStdString());
}

void prefer_language(texts::Language language) {
  QSettings().setValue(language_key(), language == texts::Language::chinese ? QStringLiteral("zh")
                                                                            : QStringLiteral("en"));
}

Theme preferred_theme() {
  const int theme = QSettings().value(theme_key()).toInt();
  return theme == 1 ? Theme::light : theme == 2 ? Theme::dark : Theme::system;
}

void prefer_theme(Theme theme) {
  QSettings().setValue(theme_key(), static_cast<int>(theme));
  apply(theme);
}

void apply_preferred_theme() {
  const Theme theme = preferred_theme();
  if (theme != Theme::system) apply(theme);
}

ReportUnits preferred_report_units() {
  const QSettings settings;
  const auto force = settings.value(QStringLiteral("report/force")).toString().toStdString();
  const auto length = settings.value(QStringLiteral("report/length")).toString().toStdString();
  return {model::parse_force_unit(force).value_or(model::ForceUnit::newton),
          model::parse_length_unit(length).value_or(model::LengthUnit::millimetre)};
}

void prefer_report_units(const ReportUnits& units) {
  QSettings settings;
  const auto text = [](std::string_view name) {
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
  };
  settings.setValue(QStringLiteral("report/force"), text(model::name_of(units.first)));
  settings.setValue(QStringLiteral("report/length"), text(model::name_of(units.second)));
}

}  // namespace aluframe::desktop
