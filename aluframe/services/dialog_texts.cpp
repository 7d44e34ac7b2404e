#include "aluframe/services/dialog_texts.h"

#include <optional>

#include "aluframe/services/text.h"
#include "aluframe/texts/text.h"
#include "host/tz_base/multi_lang.h"

namespace aluframe::services {

namespace {

using texts::translatable;

constexpr wchar_t design_module[] = L"tz_alu";

/// A text of one of the design module's dialogs, as the module has it.
struct DialogText {
  const wchar_t* dialog;   ///< symbol
  const wchar_t* control;  ///< symbol; null: the title bar
  const char* english;
};

constexpr wchar_t code_dialog[] = L"IDD_DGN_ALU_CODE_DLG";
constexpr wchar_t material_dialog[] = L"IDD_DGN_ALU_MAT_DLG";

constexpr DialogText dialog_texts[] = {
    {code_dialog, nullptr, translatable("Alu Design Code")},
    {code_dialog, L"IDC_STATIC_ALU_CODE", translatable("Design Code:")},
    {code_dialog, L"IDOK", translatable("Ok")},
    {code_dialog, L"IDCANCEL", translatable("Close")},
    {code_dialog, L"IDC_CHECK_ALU_SECT_RIB", translatable("Section rib stiffener")},
    {code_dialog, L"IDC_STATIC_ALU_SAFECLASS", translatable("Select safe class")},
    {code_dialog, L"IDC_STATIC_ALU_SAFECLASS1", translatable("Grade one")},
    {code_dialog, L"IDC_STATIC_ALU_SAFECLASS2", translatable("Grade two")},
    {code_dialog, L"IDC_STATIC_ALU_SAFECLASS3", translatable("Grade three")},
    {code_dialog, L"IDC_STATIC_ALU_SECTSTENGTH",
     translatable("Adjustment ratio of strength design:")},
    {code_dialog, L"IDC_CHECK_ALU_CONSIDE_SESI", translatable("Conside Sesi")},
    {code_dialog, L"IDC_STATIC_ALU_GAMARE_STRENGTH", translatable("Strength GammaRE:")},
    {code_dialog, L"IDC_STATIC_ALU_GAMARE_STABILITY", translatable("Stability GammaRE:")},
    {material_dialog, nullptr, translatable("Modify Alu Material ")},
    {material_dialog, L"IDC_TZ_DGN_STATIC_LIST", translatable("Material list")},
    {material_dialog, L"IDC_DGN_ALU_GROUP", translatable("Alu Material Select ")},
    {material_dialog, L"IDC_TZ_DGN_STATIC_CODE", translatable("Code:")},
    {material_dialog, L"IDC_STATIC_MATNAME", translatable("Grade:")},
    {material_dialog, L"IDC_DGN_STATIC_ES", translatable("Modulus of Elasticity (Es)")},
    {material_dialog, L"IDC_DGN_STATIC_PS", translatable("Poisson's Ratio (Ps)")},
    {material_dialog, L"IDC_DGN_STATIC_MATFU", translatable("Tensil Strength(Fu)")},
    {material_dialog, L"IDC_DGN_STATIC_MATFY1", translatable("Yeild Strength(Fy1)")},
    {material_dialog, L"IDC_DGN_STATIC_MATFY2", translatable("Yeild Strength(Fy2)")},
    {material_dialog, L"IDC_DGN_STEELMAT_MODIFY", translatable("Modify")},
    {material_dialog, L"IDCANCEL", translatable("Close")},
};

/// Number of a symbol; nothing when the module has not registered it.
std::optional<UINT> number_of(const XMultiLang& symbols, const wchar_t* symbol) {
  UINT number = 0;
  if (symbols.GetResourceId(symbol, number) == 0) return std::nullopt;
  return number;
}

void translate(host::DialogWindow& window, UINT dialog, const XMultiLang& symbols) {
  for (const DialogText& text : dialog_texts) {
    if (number_of(symbols, text.dialog) != dialog) continue;
    const CString translation = to_wide(texts::translation_of(text.english));
    if (text.control == nullptr) {
      window.SetCaption(translation);
    } else if (const auto control = number_of(symbols, text.control)) {
      window.SetText(static_cast<int>(*control), translation);
    }
  }
}

}  // namespace

std::unique_ptr<host::DialogWindow> TranslatingToolkit::Open(const DIALOG_TEMPLATE& dialog,
                                                             host::DialogEvents& events) {
  if (toolkit_ == nullptr) return nullptr;
  auto window = toolkit_->Open(dialog, events);
  const XMultiLang* symbols = INIResourceManager::GetMap(design_module);
  const bool is_english = texts::language_in_use() == texts::Language::english;
  if (window != nullptr && symbols != nullptr && !is_english) {
    translate(*window, dialog.nId, *symbols);
  }
  return window;
}

}  // namespace aluframe::services
