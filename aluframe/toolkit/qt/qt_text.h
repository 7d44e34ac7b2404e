#pragma once

#include <QString>

#include "host/framework/cstring.h"

namespace aluframe::toolkit {

inline QString to_qt(const CString& text) {
  return QString::fromWCharArray(text.GetString(), text.GetLength());
}

inline CString from_qt(const QString& text) {
  return text.toStdWString();
}

}  // namespace aluframe::toolkit
