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
