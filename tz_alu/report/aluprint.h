#pragma once

#include <string>
#include <utility>

#include "host/framework/collections.h"
#include "host/framework/cstring.h"
#include "host/tz_db/keys.h"
#include "host/tz_db/ralu.h"
#include "tz_alu/records/alu_cal.h"
#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_forces.h"
#include "tz_alu/tolerance.h"
#include "tz_alu/tz_alu_api.h"

/// Writes the calculation report, a plain-text file: its header, and per member what is checked.
///
/// Every block opens the file, appends its lines and closes it, so that a report that is cut short
/// holds every finished block. A file that cannot be opened or takes no more is passed over in
/// silence. Values come in N and mm and are printed in the units of `SetUnit`.
class TZ_ALU_API CALUPrint {
 public:
  using LCOMBS = CArrayEx<T_LCOM_MAXMIN_K>;

  CALUPrint() = default;
  CALUPrint(const CALUPrint&) = delete;
  CALUPrint& operator=(const CALUPrint&) = delete;
  virtual ~CALUPrint();

  /// Title, and the combinations with the load cases that they are made of. Of an envelope, which
  /// has two keys, the maximum side alone is listed.
  virtual void PrintHeader(const LCOMBS& lcombs);
  /// Number, type, material and section of a member, the units, and its section properties.
  virtual void PrintMember(const ALU_DGN_DATA& data);
  virtual void PrintSection(const ALU_DGN_DATA& data);
  /// Takes names and factors of the host's current units.
  virtual void SetUnit();

  void SetReportPath(const CString& path) { m_strPath = path; }
  /// Leaves an empty file.
  void ResetReport() const;
  /// Makes sure that the file exists.
  void TouchReport() const;
  /// Blocks since the file was reset that could not be written whole: the file cannot be opened or
  /// takes no more, or the user's code page lacks a character.
  int LostBlocks() const { return m_nLostBlocks; }
  /// Where a block counts itself when it is lost.
  int* LostBlockCount() const { return &m_nLostBlocks; }

  /// What was written since it was last taken, before it is narrowed to the user's code page.
  std::wstring TakeText() const { return std::exchange(m_strText, {}); }
  /// Where a block adds what it writes.
  std::wstring* ReportText() const { return &m_strText; }

  const CString& ReportPath() const { return m_strPath; }
  /// What banner titles and member lines start with: two blanks.
  const CString& Margin() const { return m_strMargin; }
  /// What describing lines start with: three blanks.
  const CString& Lead() const { return m_strLead; }
  /// What value, load and formula lines start with: three blanks.
  const CString& Gap() const { return m_strGap; }

  // Numbers as the report prints them, see `alu_report::FormatValue`, after scaling to the units.
  std::wstring FormatLength(double value, unsigned precision, unsigned width) const;
  std::wstring FormatArea(double value, unsigned precision, unsigned width) const;
  std::wstring FormatModulus(double value, unsigned precision, unsigned width) const;
  std::wstring FormatInertia(double value, unsigned precision, unsigned width) const;
  std::wstring FormatForce(double value, unsigned precision, unsigned width) const;
  std::wstring FormatMoment(double value, unsigned precision, unsigned width) const;
  std::wstring FormatStress(double value, unsigned precision, unsigned width) const;

 protected:
  CString m_strPath;       // of the report file
  CString m_strLength;     // name of the length unit
  CString m_strForce;      // name of the force unit
  double m_dLength = 1.0;  // length units in a mm
  double m_dForce = 1.0;   // force units in a N
  CString m_strMargin = L"  ";
  CString m_strLead = L"   ";
  CString m_strGap = L"   ";
  mutable int m_nLostBlocks = 0;
  mutable std::wstring m_strText;
};

/// What a detail block shows: the check's input and forces, what it calculated and its results.
struct ALU_REPORT_INPUT {
  const ALU_DGN_DATA& data;
  const AluDgnSectForce& force;
  const ALU_CAL_BUFF& buffer;
  const T_RALU_SECT& result;
};

/// The report's blocks of GB 50429-2007: each check with the quantities that it used, its formula,
/// ratio and verdict.
///
/// Checks and blocks choose their formulas by force state. Tension is N > 1e-10 and compression
/// N < −1e-10; a moment of magnitude below 1e-10 counts as zero. |N| = 1e-10 is therefore neither
/// tension nor compression, and a moment of magnitude 1e-10 is bending.
class TZ_ALU_API CALU_GB50429_07Print : public CALUPrint {
 public:
  ~CALU_GB50429_07Print() override;

  void PrintStrength(const ALU_REPORT_INPUT& in) const;
  /// Axial compression, pure bending, or the y check of compression with bending.
  void PrintStability(const ALU_REPORT_INPUT& in) const;
  /// The z check of compression with bending.
  void PrintCombinedStability(const ALU_REPORT_INPUT& in) const;
  void PrintShearY(const ALU_REPORT_INPUT& in) const;
  void PrintShearZ(const ALU_REPORT_INPUT& in) const;
  void PrintSlenderness(const ALU_REPORT_INPUT& in) const;

  /// Channels, tees, and H sections whose flanges differ: top and bottom are checked apart.
  static bool IsMonoSymmetric(const ALU_SECT_DATA& sect);
  static bool IsTension(const AluDgnSectForce& force) {
    return force.dForce[ALU_FORCE_N] > alu_engine::kTolerance;
  }
  static bool IsCompression(const AluDgnSectForce& force) {
    return force.dForce[ALU_FORCE_N] < -alu_engine::kTolerance;
  }
  /// My or Mz is not zero.
  static bool IsBending(const AluDgnSectForce& force) {
    return !alu_engine::IsZero(force.dForce[ALU_FORCE_MY]) ||
           !alu_engine::IsZero(force.dForce[ALU_FORCE_MZ]);
  }
  static bool IsPureTension(const AluDgnSectForce& force) {
    return IsTension(force) && !IsBending(force);
  }
  static bool IsPureCompression(const AluDgnSectForce& force) {
    return IsCompression(force) && !IsBending(force);
  }
  /// Neither tension nor compression, with bending.
  static bool IsPureBending(const AluDgnSectForce& force) {
    return !IsTension(force) && !IsCompression(force) && IsBending(force);
  }
  static bool IsTensionBending(const AluDgnSectForce& force) {
    return IsTension(force) && IsBending(force);
  }
  static bool IsCompressionBending(const AluDgnSectForce& force) {
    return IsCompression(force) && IsBending(force);
  }
};
