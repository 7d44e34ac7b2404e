#include "aluframe/io/json_edit.h"

#include <algorithm>
#include <utility>

#include "aluframe/io/json_document.h"

namespace aluframe::io {

namespace {

/// Whether a name, in its quotes, says this. Most names are written without escapes.
bool says(std::string_view quoted, std::string_view name) {
  if (quoted.find('\\') == std::string_view::npos) {
    return quoted.substr(1, quoted.size() - 2) == name;
  }
  const JsonDocument document(quoted);
  return document.string(JsonDocument::root) == name;
}

/// What stands between a field and the one before it: a comma with blanks around it.
std::string separator_before(std::string_view text, const std::vector<JsonMember>& members,
                             const JsonMember& member) {
  const std::size_t end = member.name.begin;
  if (&member != &members.front()) {
    const std::size_t begin = (&member - 1)->value.end;
    return std::string(text.substr(begin, end - begin));
  }
  const std::size_t begin = text.find_last_not_of(json_blanks, end - 1) + 1;
  if (begin < end) return "," + std::string(text.substr(begin, end - begin));
  // {"a": 1} goes on as {"a": 1, "b": 2}, and {"a":1} as {"a":1,"b":2}.
  const bool has_blanks = text[member.value.begin - 1] == ' ';
  return has_blanks ? ", " : ",";
}

}  // namespace

const JsonMember* find_member(std::string_view text, const std::vector<JsonMember>& members,
                              std::string_view name) {
  const auto found = std::ranges::find_if(
      members, [&](const JsonMember& member) { return says(member.name.of(text), name); });
  return found == members.end() ? nullptr : &*found;
}

void JsonEdit::replace(JsonSpan value, std::string json) {
  replacements_.push_back({value, std::move(json)});
}

void JsonEdit::insert_behind(const std::vector<JsonMember>& members, const JsonMember& before,
                             std::string_view name, std::string_view json) {
  std::string field = separator_before(text_, members, before);
  field.append("\"").append(name).append("\": ").append(json);
  replace({before.value.end, before.value.end}, std::move(field));
}

/// The comma that goes is the one before the field, unless all before it go as well.
void JsonEdit::remove(const std::vector<JsonMember>& members, std::size_t place,
                      bool is_behind_another) {
  const JsonMember& member = members[place];
  if (is_behind_another) {
    replace({members[place - 1].value.end, member.value.end}, "");
  } else {
    replace({member.name.begin, members[place + 1].name.begin}, "");
  }
}

void JsonEdit::set_fields(JsonSpan object, std::span<const JsonField> fields) {
  const std::vector<JsonMember> members = json_members(text_, object);
  bool is_behind_another = false;
  for (std::size_t i = 0; i < members.size(); ++i) {
    const std::string_view name = members[i].name.of(text_);
    const auto field = std::ranges::find_if(
        fields, [name](const JsonField& each) { return says(name, each.name); });
    if (field == fields.end()) {
      is_behind_another = true;
      continue;
    }
    if (const std::optional<std::string>& json = field->json) {
      replace(members[i].value, *json);
      is_behind_another = true;
    } else {
      remove(members, i, is_behind_another);
    }
  }
  for (const JsonField& field : fields) {
    if (!field.json || find_member(text_, members, field.name) != nullptr) continue;
    insert_behind(members, members.back(), field.name, *field.json);
  }
}

std::string JsonEdit::result() const {
  std::vector<const Replacement*> in_order;
  in_order.reserve(replacements_.size());
  for (const Replacement& each : replacements_) in_order.push_back(&each);
  // Fields that come behind the same one stay in the order in which they were added.
  std::ranges::stable_sort(in_order, {}, [](const Replacement* each) { return each->span.begin; });
  std::string result;
  std::size_t kept = 0;
  for (const Replacement* replacement : in_order) {
    result += text_.substr(kept, replacement->span.begin - kept);
    result += replacement->text;
    kept = replacement->span.end;
  }
  return result += text_.substr(kept);
}

}  // namespace aluframe::io
