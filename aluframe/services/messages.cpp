#include "aluframe/services/messages.h"

namespace aluframe::services {

namespace {

struct Message {
  const wchar_t* key;
  const wchar_t* english;
  const wchar_t* chinese;
};

constexpr Message messages[] = {
    {L"IDS_MAIN_RIBBON_MENU_ALU_DGN", L"Aluminium design",
     L"\u94DD\u5408\u91D1\u7ED3\u6784\u8BBE\u8BA1"},
    {L"IDS_DGN_TEXT_READ_CHK_ALU", L"Checking aluminium elements",
     L"\u6B63\u5728\u9A8C\u7B97\u94DD\u5408\u91D1\u6784\u4EF6"},
    {L"IDS_DGN_COM_ERROR_TITLE", L"The design cannot start:",
     L"\u65E0\u6CD5\u5F00\u59CB\u8BBE\u8BA1\uFF1A"},
    {L"IDS_ACS_NO_LCOM_GOOD", L"the model has no load combination for design.",
     L"\u6A21\u578B\u4E2D\u6CA1\u6709\u7528\u4E8E\u8BBE\u8BA1\u7684\u8377\u8F7D\u7EC4\u5408\u3002"},
    {L"IDS_ACS_NO_SECT_TYPE_GOOD", L"there is no aluminium element to check.",
     L"\u6CA1\u6709\u53EF\u9A8C\u7B97\u7684\u94DD\u5408\u91D1\u6784\u4EF6\u3002"},
    {L"IDS_DGN_COM_END_DGN", L"Finished: ", L"\u5DF2\u5B8C\u6210\uFF1A"},
    {L"IDS_DGN_LIST_NAME", L"Name", L"\u540D\u79F0"},
    {L"IDS_DGN_TEXT_DB_NAME", L"Grade:", L"\u724C\u53F7\uFF1A"},
    {L"IDS_DGN_TEXT_NAME", L"Name:", L"\u540D\u79F0\uFF1A"},
    {L"IDS_DGN_COM_NO_SEL_MATL", L"Select the material to modify in the list first.",
     L"\u8BF7\u5148\u5728\u5217\u8868\u4E2D\u9009\u62E9\u8981\u4FEE\u6539\u7684\u6750\u6599\u3002"},
    {L"IDS_DGN_CHK_TITLE_ERROR", L"The material was not changed:",
     L"\u6750\u6599\u672A\u4FEE\u6539\uFF1A"},
    {L"IDS_DGN_CHK_STL_MATL_NAME_ERROR", L"the material needs a name.",
     L"\u6750\u6599\u540D\u79F0\u4E0D\u80FD\u4E3A\u7A7A\u3002"},
    {L"IDS_DGN_CHK_MATL_ES_ERROR", L"the modulus of elasticity (Es) must be greater than 0.",
     L"\u5F39\u6027\u6A21\u91CF\uFF08Es\uFF09\u5FC5\u987B\u5927\u4E8E 0\u3002"},
    {L"IDS_DGN_CHK_MATL_PS_ERROR", L"Poisson's ratio (Ps) must be greater than 0.",
     L"\u6CCA\u677E\u6BD4\uFF08Ps\uFF09\u5FC5\u987B\u5927\u4E8E 0\u3002"},
    {L"IDS_DGN_CHK_MATL_FU_ERROR", L"the tensile strength (Fu) must be greater than 0.",
     L"\u6297\u62C9\u5F3A\u5EA6\uFF08Fu\uFF09\u5FC5\u987B\u5927\u4E8E 0\u3002"},
    {L"IDS_DGN_CHK_MATL_FY1_ERROR",
     L"the proof strength for t \u2264 10 mm (Fy1) must be greater than 0.",
     L"t \u2264 10 mm "
     L"\u7684\u89C4\u5B9A\u975E\u6BD4\u4F8B\u5EF6\u4F38\u5F3A\u5EA6\uFF08Fy1\uFF09\u5FC5\u987B"
     L"\u5927\u4E8E 0\u3002"},
    {L"IDS_DGN_CHK_MATL_FY2_ERROR",
     L"the proof strength for t > 10 mm (Fy2) must be greater than 0.",
     L"t > 10 mm "
     L"\u7684\u89C4\u5B9A\u975E\u6BD4\u4F8B\u5EF6\u4F38\u5F3A\u5EA6\uFF08Fy2\uFF09\u5FC5\u987B"
     L"\u5927\u4E8E 0\u3002"},
};

}  // namespace

CString message_text(const CString& key, Language language) {
  for (const Message& message : messages) {
    if (key == message.key) {
      return language == Language::english ? message.english : message.chinese;
    }
  }
  return key;
}

std::optional<Language> parse_language(std::string_view name) {
  if (name == "en") return Language::english;
  if (name == "zh") return Language::chinese;
  return std::nullopt;
}

}  // namespace aluframe::services
