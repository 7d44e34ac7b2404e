#pragma once

#include "host/framework/cstring.h"

namespace aluframe::services {

/// Text of a message key in the user's language; the key itself when the host has no text for it.
CString message_text(const CString& key);

}  // namespace aluframe::services
