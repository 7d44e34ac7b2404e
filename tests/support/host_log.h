#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/fake_model.h"

namespace test_support {

/// A record as it was handed to the result store.
struct WrittenRecord {
  UINT elem = 0;
  UINT lcomb = 0;
  int min_side = 0;
  int option = 0;
  T_RALU_D record;
};

struct ShownMessage {
  std::wstring text;
  UINT type = 0;
};

struct RaisedAssertion {
  std::wstring source;
  int line = 0;

  friend bool operator==(const RaisedAssertion&, const RaisedAssertion&) = default;
};

/// One pass of the length factor calculation.
struct KFactorPass {
  int is_alu_dgn = 0;
  std::vector<UINT> elems;
  std::vector<int> options;
};

/// One call of the warping computation.
struct WarpingCall {
  std::wstring shape;
  int flag = 0;
  int option1 = -1;
  int option2 = -1;
  double option3 = -1.0;
};

/// What the module did to a `FakeHost`.
struct HostLog {
  /// Everything that changes something or belongs to a fixed order, one line each:
  /// "result file created", "units 0,2", "length factors computed", "section 1 read",
  /// "material 1 read", "seismic type of 1 read", "progress opened", "written 1/0/0" (element,
  /// combination, side), "progress 1/3", "progress closed", "result file checked",
  /// "design flag 1", "message shown", "history written", "status line written".
  std::vector<std::string> events;

  std::vector<WrittenRecord> written;
  std::vector<ForceKey> force_reads;
  std::vector<std::pair<int, UINT>> combination_reads;  ///< kind and number
  std::vector<ShownMessage> messages;
  std::vector<std::wstring> history;
  std::vector<std::wstring> status_lines;
  std::vector<std::pair<std::wstring, std::wstring>> edited;  ///< path and title
  std::vector<std::array<int, 3>> conversions;                ///< length, force, kind
  std::vector<int> design_flags;
  std::vector<RaisedAssertion> assertions;
  std::vector<KFactorPass> k_factor_passes;
  std::vector<WarpingCall> warping_calls;
  std::wstring progress_title;
  std::wstring progress_text;
  int progress_cancellable = 0;

  bool is_progress_open = false;  ///< the dialog is on the screen
  int objects_alive = 0;          ///< dialogs and calculations created and not yet destroyed
};

}  // namespace test_support
