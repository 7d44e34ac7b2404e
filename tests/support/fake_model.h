#pragma once

#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "host/host_services.h"

namespace test_support {

/// Element, number of the combination, minimum side.
using ForceKey = std::tuple<UINT, UINT, bool>;

/// Where a host keeps load cases: their kind (LCOM_ENTRY_KIND), and for moving loads the code that
/// they follow, else 0.
using CaseTable = std::pair<int, int>;

/// What a `FakeHost` serves: plain tables that a test fills and changes as it likes. What is not in
/// a table is not in the host.
struct FakeModel {
  // The frame, by key.
  std::map<UINT, T_ELEM_D> elements;
  std::map<UINT, T_NODE_D> nodes;
  std::map<UINT, T_SUPPORT_D> supports;
  std::map<UINT, T_FRLS_D> releases;
  std::map<UINT, std::vector<UINT>> members;  ///< element keys in member order
  std::map<UINT, T_SECT_DESIGN_D> sections;
  std::map<UINT, T_MATD_D> materials;
  std::vector<UINT> element_order;  ///< the host's order of its elements
  std::vector<UINT> selection;      ///< what the user has selected in the view
  std::vector<UINT> other_metals;   ///< elements that are not of aluminium

  /// Member types by element, per scheme; an element that is not listed is a column (1) under
  /// scheme 0 and a column (2) under scheme 1.
  std::map<UINT, int> member_types;
  std::map<UINT, int> member_types_of_scheme_1;
  std::vector<UINT> not_frame_type;  ///< elements that are neither beam nor truss

  // Design settings and attributes, the latter by element.
  std::optional<T_DALU_D> settings;
  std::optional<T_DCTL_D> control;
  std::map<UINT, T_APHI_D> stability_coefficients;
  std::map<UINT, T_ARIB_D> ribs;
  std::map<UINT, T_AWED_D> welds;
  std::map<UINT, T_AHTR_D> heat_zones;
  std::map<UINT, T_CMFT_D> moment_factors;
  std::map<UINT, T_KFAC_D> own_length_factors;
  std::map<UINT, T_LTSR_D> slenderness_limits;

  // What the host computes.
  std::map<UINT, T_KFAC_D> length_factors;  ///< results of the length factor pass
  T_WARPING_D warping;                      ///< result of every warping computation
  bool computes_warping = true;             ///< what the warping computation reports

  // Load combinations and forces.
  std::vector<T_LCOM_MAXMIN_K> combinations;  ///< keys in the host's order
  std::map<UINT, int> seismic_types;          ///< by combination number; 0 when not listed
  std::map<ForceKey, T_ALU_FORCE_D> forces;

  // What the report lists and prints in.
  std::map<UINT, T_LCOM_D> combination_records;
  /// Names of load cases, by kind and number; moving loads by their code too.
  std::map<std::pair<CaseTable, UINT>, std::wstring> load_cases;
  std::optional<int> moving_load_code;
  std::wstring length_unit = L"m";
  std::wstring force_unit = L"kN";
  double length_factor = 1e-3;           ///< length units in a mm
  double force_factor = 1e-3;            ///< force units in a N
  std::wstring document_path = L"fake";  ///< without an extension

  // How the host behaves.
  int is_use_alu = 1;
  bool is_reg_test_mode = true;
  int is_release_assert = 1;
  bool can_create_result_file = true;
  std::vector<int> failing_unit_changes;  ///< changes of units that throw, counted from 1
  int design_file_check = 1;              ///< what the check of the result file answers
  int cancel_at_update = 0;  ///< the user cancels at this progress update, counted from 1; 0 never

  /// Fills the name of a load case. @return 0 when it is not in the table
  template <class CASE>
  int named(const CaseTable& table, UINT number, CASE& out) const {
    const auto found = load_cases.find({table, number});
    if (found == load_cases.end()) return 0;
    out.strName = found->second;
    return 1;
  }

  void add_node(UINT node, double x, double y, double z);
  /// Adds an element of section 1 and material 1, last in the host's order.
  void add_element(UINT elem, UINT start, UINT end);
  /// Adds forces and the combination's number to their record.
  void add_forces(UINT elem, T_LCOM_MAXMIN_K key, T_ALU_FORCE_D forces_of_key);
};

/// A pipe 100 × 5 and 6061-T6, both numbered 1, and combination 1: what every frame needs.
FakeModel pipe_model();

/// `pipe_model` with element 1 from node 1 to node 2, 3000 long along X, pulled with 10 kN under
/// combination 1.
FakeModel one_element_model();

/// `pipe_model` with elements 1, 2 and 3 of member 7 in a row of nodes 1, 2, 3 and 4 along X, each
/// 1000 long. Under combination 1 the moment My at position p of element e is 10·e + p, Mz 100
/// times that, and no inner position carries forces.
FakeModel three_element_model();

}  // namespace test_support
