#include "aluframe/services/messages.h"

#include "aluframe/services/text.h"
#include "aluframe/texts/text.h"

namespace aluframe::services {

namespace {

using texts::translatable;

struct Message {
  const wchar_t* key;
  const char* english;
};

constexpr Message messages[] = {
    {L"IDS_MAIN_RIBBON_MENU_ALU_DGN", translatable("Aluminium design")},
    {L"IDS_DGN_TEXT_READ_CHK_ALU", translatable("Checking aluminium elements")},
    {L"IDS_DGN_COM_ERROR_TITLE", translatable("The design cannot start:")},
    {L"IDS_ACS_NO_LCOM_GOOD", translatable("the model has no load combination for design.")},
    {L"IDS_ACS_NO_SECT_TYPE_GOOD", translatable("there is no aluminium element to check.")},
    {L"IDS_DGN_COM_END_DGN", translatable("Finished: ")},
    {L"IDS_DGN_LIST_NAME", translatable("Name")},
    {L"IDS_DGN_TEXT_DB_NAME", translatable("Grade:")},
    {L"IDS_DGN_TEXT_NAME", translatable("Name:")},
    {L"IDS_DGN_COM_NO_SEL_MATL", translatable("Select the material to modify in the list first.")},
    {L"IDS_DGN_CHK_TITLE_ERROR", translatable("The material was not changed:")},
    {L"IDS_DGN_CHK_STL_MATL_NAME_ERROR", translatable("the material needs a name.")},
    {L"IDS_DGN_CHK_MATL_ES_ERROR",
     translatable("the modulus of elasticity (Es) must be greater than 0.")},
    {L"IDS_DGN_CHK_MATL_PS_ERROR", translatable("Poisson's ratio (Ps) must be greater than 0.")},
    {L"IDS_DGN_CHK_MATL_FU_ERROR",
     translatable("the tensile strength (Fu) must be greater than 0.")},
    {L"IDS_DGN_CHK_MATL_FY1_ERROR",
     translatable("the proof strength for t ≤ 10 mm (Fy1) must be greater than 0.")},
    {L"IDS_DGN_CHK_MATL_FY2_ERROR",
     translatable("the proof strength for t > 10 mm (Fy2) must be greater than 0.")},
};

}  // namespace

CString message_text(const CString& key) {
  for (const Message& message : messages) {
    if (key == message.key) return to_wide(texts::translation_of(message.english));
  }
  return key;
}

}  // namespace aluframe::services
