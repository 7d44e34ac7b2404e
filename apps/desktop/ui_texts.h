#pragma once

#include <QString>
#include <string_view>

namespace aluframe::desktop {

/// A text of the catalogue in the user's language.
QString ui_text(std::string_view english);

}  // namespace aluframe::desktop
