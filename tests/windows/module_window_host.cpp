#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "aluframe/toolkit/win32/message_box.h"
#include "aluframe/toolkit/win32/progress_window.h"
#include "aluframe/toolkit/win32/text_viewer.h"
#include "aluframe/toolkit/win32/wide_text.h"
#include "aluframe/toolkit/win32/win32_toolkit.h"
#include "module_window.h"
#include "tests/integration/consumer/tiny_host.h"
#include "tz_alu/dialogs/dgnalucodedlg.h"
#include "tz_alu/dialogs/dgnalumatdlg.h"
#include "tz_alu/manager/dgnaludatamgr.h"
#include "tz_alu/module/init_tz_aludll.h"

namespace module_window {

namespace {

namespace toolkit = aluframe::toolkit;

/// The document of a program that somebody uses.
class WatchedDocument : public consumer::Document {
 public:
  bool IsRegTestMode() const override { return false; }
};

/// The smallest host, with the system's windows.
class WindowHost : public consumer::TinyHost {
 public:
  CDBDoc* DocPoint() override { return &watched; }
  std::unique_ptr<CDgnProgressDlg> CreateProgressDlg() override {
    return std::make_unique<toolkit::ProgressWindow>();
  }
  int ShowMessageBox(const CString& text, UINT type) override {
    return toolkit::show_message_box(std::wstring(text.GetString()), type);
  }
  int RunTextEditor(const CString& path, const CString&) override {
    return toolkit::open_text(path.GetString()) ? 1 : 0;
  }
  host::Toolkit* DialogToolkit() override { return &dialogs; }
  CString MessageText(const CString& key) override {
    const auto found = texts.find(key.GetString());
    return found != texts.end() ? CString(found->second) : key;
  }
  /// Takes texts from a file in UTF-8, "KEY=text" a line; without one they are their keys.
  void read_texts(const std::wstring& file) {
    std::ifstream lines{std::filesystem::path(file)};
    for (std::string line; std::getline(lines, line);) {
      const std::size_t end = line.find('=');
      if (end == std::string::npos) continue;
      texts[toolkit::wide_text(line.substr(0, end))] = toolkit::wide_text(line.substr(end + 1));
    }
  }

  WatchedDocument watched;
  std::map<std::wstring, std::wstring> texts;
  toolkit::Win32Toolkit dialogs;
};

WindowHost& the_host() {
  static WindowHost host;
  return host;
}

std::wstring number(double value) {
  wchar_t text[32];
  std::swprintf(text, std::size(text), L"%.3f", value);
  return text;
}

}  // namespace

Host::Host(const std::wstring& texts) {
  the_host().read_texts(texts);
  host::Bind(the_host());
  Init_tz_aludll();
}

Host::~Host() {
  host::Unbind();
}

std::wstring Host::check(unsigned elements) {
  consumer::Document& document = the_host().watched;
  document.attributes.count = elements;
  const int flag = IAluDgnDataMgr::Instance()->CheckCode(nullptr);
  if (flag == 0) return L"stopped";
  const T_RALU_ITEM& strength = document.results.governing.aComp[RALU_STRENGTH];
  return L"strength " + number(strength.dDemand) + L" of " + number(strength.dCapacity);
}

std::wstring Host::report() {
  the_host().watched.attributes.count = 1;
  const int written = IAluDgnDataMgr::Instance()->MakeReport(nullptr, CString(L"tiny.alu"));
  return written != 0 ? L"report written" : L"no report";
}

std::wstring Host::edit_settings() {
  const int result = CDgnAluCodeDlg().DoModal();
  const auto& settings = the_host().watched.attributes.settings;
  const std::wstring ratio = settings ? number(settings->dStrengthRatio) : L"none";
  return L"settings " + std::to_wstring(result) + L" ratio " + ratio;
}

std::wstring Host::edit_materials() {
  CDgnAluMatDlg().DoModal();
  const T_MATD_D& material = the_host().watched.attributes.material;
  return std::wstring(L"material ") + material.strName.GetString() + L" " + number(material.dFu);
}

}  // namespace module_window
