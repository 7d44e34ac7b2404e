#pragma once

#include <QWidget>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/io/model_merge.h"
#include "host/framework/messagebox.h"

namespace aluframe::desktop {

/// The design module's message boxes: no caption, one button.
/// @param type as AfxMessageBox takes it. @return 1: OK
int show_message_box(const std::string& text, UINT type);

/// Tells a problem in a box and on standard error. @param parent may be null
void show_problem(QWidget* parent, const std::string& text);

/// Tells a problem on standard error, "aluframe-desktop: ...".
void print_problem(const std::string& text);

enum class SaveChoice { save, discard, cancel };

/// Asks what becomes of changes that are not saved.
SaveChoice ask_to_save(QWidget* parent, const QString& file, const QString& question);

/// Asks whose values are kept where the user and another program have changed the same ones.
/// @return nothing when the user wants neither
std::optional<io::Keep> ask_whose(QWidget* parent, const std::filesystem::path& file,
                                  const std::vector<io::Conflict>& conflicts);

}  // namespace aluframe::desktop
