#pragma once

#include "host/framework/collections.h"
#include "host/framework/cstring.h"
#include "host/host_api.h"
#include "host/tz_db/attributes.h"
#include "host/tz_db/forces.h"
#include "host/tz_db/keys.h"
#include "host/tz_db/load_cases.h"
#include "host/tz_db/model.h"
#include "host/tz_db/ralu.h"
#include "host/tz_db/settings_services.h"

// Services of the host's model and result libraries. Operations that fill a record return nonzero
// when the host has it; then and only then the record is filled. A service may throw any
// `std::exception` for a failure of its own; the module's entries catch it and end the run.

class CDBDoc;

/// Attributes of the model's entities, by key.
class CAttrCtrl {
 public:
  virtual ~CAttrCtrl() = default;

  virtual int GetCountElem(int option) const = 0;  ///< number of elements; `option` is 1
  virtual int GetElem(UINT elem, T_ELEM_D& out) const = 0;
  virtual int GetNode(UINT node, T_NODE_D& out) const = 0;
  virtual int GetFrlsElem(UINT elem, T_FRLS_D& out) const = 0;
  virtual int GetSupportCondition(UINT node, T_SUPPORT_D& out) const = 0;
  /// Elements that have `node` as an end.
  virtual int GetConnectedElem(UINT node, CArray<UINT>& out) const = 0;
  /// Member type of an element. `scheme` 0: 1 column, 2 beam, 3 brace, 5 truss; `scheme` 1: 1 beam,
  /// 2 column, 4 brace, 5 truss. 0 for an unknown element.
  virtual int GetMemberType(UINT elem, int scheme) const = 0;
  /// Nonzero for a frame element (beam or truss).
  virtual int IsFrameType(UINT elem) const = 0;

  /// Key of the member that the element with this display key belongs to; 0 when none.
  virtual UINT GetMembAssigned(UINT displayKey) const = 0;
  virtual int GetMemb(UINT memb, T_MEMB_D& out) const = 0;

  virtual int GetSectDesign(UINT sect, T_SECT_DESIGN_D& out) const = 0;
  virtual int GetMatlDesign(UINT matl, T_MATD_D& out) const = 0;

  virtual int GetDalu(T_DALU_D& out) const = 0;
  virtual int GetDctl(T_DCTL_D& out) const = 0;
  virtual int GetAphi(UINT elem, T_APHI_D& out) const = 0;
  virtual int GetArib(UINT elem, T_ARIB_D& out) const = 0;
  virtual int GetAwed(UINT elem, T_AWED_D& out) const = 0;
  virtual int GetAhtr(UINT elem, T_AHTR_D& out) const = 0;
  virtual int GetCmft(UINT elem, T_CMFT_D& out) const = 0;
  virtual int GetKfac(UINT elem, T_KFAC_D& out) const = 0;
  virtual int GetLtsr(UINT elem, T_LTSR_D& out) const = 0;

  /// Nonzero when the model has design settings.
  virtual int ExistDalu() const { return 0; }
  /// Keys of the model's materials in its order. @return their number
  virtual int GetMatlKeyList(CArray<UINT>& /*out*/) const { return 0; }

  // Combinations and load cases, for the list in the report. A host answers 0, as here, for what it
  // does not have.

  /// A load combination. `kind` is the kind of design (6 aluminium), or 2 for a combination that is
  /// part of another.
  virtual int GetLcom(int /*kind*/, UINT /*number*/, T_LCOM_D& /*out*/) const { return 0; }
  virtual int GetSplc(UINT /*number*/, T_SPLC_D& /*out*/) const { return 0; }
  virtual int GetThis(UINT /*number*/, T_THIS_D& /*out*/) const { return 0; }
  virtual int GetSmlc(UINT /*number*/, T_SMLC_D& /*out*/) const { return 0; }
  virtual int GetSgld(UINT /*number*/, T_STLD_D& /*out*/) const {
    return 0;
  }  ///< a seismic static case
  virtual int GetCran(UINT /*number*/, T_CRAN_D& /*out*/) const { return 0; }
  virtual int GetMvcd(T_MVCD_D& /*out*/) const { return 0; }
  virtual int GetMvld(UINT /*number*/, T_MVLD_D& /*out*/) const { return 0; }
  virtual int GetMvldch(UINT /*number*/, T_MVLDch_D& /*out*/) const { return 0; }
  virtual int GetMvldjp(UINT /*number*/, T_MVLDjp_D& /*out*/) const { return 0; }
  virtual int GetMvldid(UINT /*number*/, T_MVLDid_D& /*out*/) const { return 0; }
  virtual int GetMvldbs(UINT /*number*/, T_MVLDbs_D& /*out*/) const { return 0; }
  virtual int GetMvldfr(UINT /*number*/, T_MVLDfr_D& /*out*/) const { return 0; }
  virtual int GetMvldtr(UINT /*number*/, T_MVLDtr_D& /*out*/) const { return 0; }
};

/// Attributes derived from several entities.
class CAttrCtrl2 {
 public:
  virtual ~CAttrCtrl2() = default;
  /// Sum of the lengths of the member's elements.
  virtual double GetMembTotalLength(UINT memb) const = 0;
};

/// Display of members.
class CMembCtrl {
 public:
  virtual ~CMembCtrl() = default;
  /// Display key of the member that includes `elem`: one element key stands for the whole member.
  /// An element without a member is its own display key; 0 for an unknown element.
  virtual UINT GetShowElemByIncludeElem(UINT elem) const = 0;
};

/// What the user has selected in the view.
class CViewCtrl {
 public:
  virtual ~CViewCtrl() = default;
  virtual void GetAllSelectedElem(CArray<UINT>& out) const = 0;
};

/// Current units of everything that the services hand out.
class CUnitCtrl {
 public:
  virtual ~CUnitCtrl() = default;
  virtual T_UNIT_INDEX GetUnitIndexCurrent() const = 0;
  virtual void SetUnitIndexCurrent(const T_UNIT_INDEX& index, int option) = 0;
  /// Name of the current unit, such as "mm" or "kN".
  virtual CString GetUnitSystemLength() const = 0;
  virtual CString GetUnitSystemForce() const = 0;
  /// `value` in the units of a selection, expressed in the current ones.
  /// @param length, force places in `T_UNIT_INDEX` of the units that `value` is in
  /// @param kind 1 a length, 2 a force
  virtual double ConvertTgtUnitData2CurUnit(int length, int force, int kind,
                                            double value) const = 0;
  /// Text of a type of unit in the current units, such as "N/mm²" for a stress (17).
  virtual CString GetUnitText(int /*type*/) const { return CString(); }
};

/// The aluminium design result store, and the element forces that design reads.
class CAluDesignMgr {
 public:
  virtual ~CAluDesignMgr() = default;
  /// Starts the result file of a new run. @return 0 when it cannot be created
  virtual int CreateDesignResultFile() = 0;
  /// Stores one element's record of a combination, or, under combination 0, the governing one.
  virtual int WriteDesignResult(UINT elem, const T_RALU_D& record, UINT lcomb, int minSide,
                                int option) = 0;
  /// Reads a stored record. @return 0 when there is none
  virtual int ReadDesignResult(UINT elem, T_RALU_D& record, UINT lcomb, int minSide,
                               int option) = 0;
  /// A stored governing check has been made again for the report, whose block of it is written.
  /// A host that finds the two to differ may end the report by an exception.
  /// @param again its demand and capacity; both 0 when the check could not be made again
  virtual void CheckedAgain(UINT /*elem*/, int /*type*/, const T_RALU_ITEM& /*stored*/,
                            const T_RALU_RLT& /*again*/) {}
  /// Nonzero when the result file is complete and consistent.
  virtual int CheckDesignFile() = 0;
  /// Notes in the model whether design results exist.
  virtual void SetDesignFlag(int flag) = 0;
  /// Forces of an element for a combination. @return 0 when the host has none
  virtual int GetElementForce(UINT elem, UINT lcomb, T_ALU_FORCE_D& out, bool minSide) = 0;
};

/// Order of the elements, and the result stores.
class CPostCtrl {
 public:
  virtual ~CPostCtrl() = default;
  /// Key of the `index`-th element in the host's order, counted from 1.
  virtual UINT GetOriginElem(int index) const = 0;
  virtual CAluDesignMgr& AluDgnMgr() = 0;
  /// A static load case, for the report's list.
  virtual int GetStld(UINT /*number*/, T_STLD_D& /*out*/) const { return 0; }
};

/// Section database.
class CSectDB {
 public:
  virtual ~CSectDB() = default;
  /// Computes warping constant, shear centre and centroid of a section, unless its record says that
  /// they are in it (`bWarpingComputed`). Asked once for a section.
  /// @param flag 1 for a section given by its dimensions alone, else 0
  /// @return 0 on failure: then nothing is read from `out`, and the checks use the three values
  ///         that `GetSectDesign` put in the record. A warping constant of 0 there gives critical
  ///         moments that are no numbers.
  virtual int CalcWarpingFuncion(const T_SECT_DESIGN_D& sect, T_WARPING_D& out, int flag,
                                 int option1, int option2, double option3) = 0;
};

/// Tools of aluminium design.
class IAluDgnTool {
 public:
  virtual ~IAluDgnTool() = default;
  /// 0 when aluminium design is switched off in the host.
  virtual int IsUseAluDgn() const = 0;
  /// Keeps the elements whose material is aluminium, in their order. `option` is 1.
  virtual int FiltAluKeysByMatl(const CArray<UINT>& in, CArray<UINT>& out, int option) const = 0;
  /// Design load combinations of a kind of design. @return their number
  virtual int GetAluDgnLCombs(CArrayEx<T_LCOM_MAXMIN_K>& out, int kind, int option) const = 0;
  /// Seismic type of a combination, given by its key: 0 not seismic.
  virtual int Get_SesiType(UINT lcomb, const CDBDoc* doc, int kind) const = 0;
  /// Nonzero when a material is an aluminium alloy.
  virtual int IsAluMatl(UINT /*matl*/) const { return 0; }
  /// The type of database that holds the aluminium alloys.
  virtual int GetDgnAluMatlDBType() const { return 0; }
  /// Nonzero for a standard whose alloys GB 50429-2007 designs.
  virtual int IsAluMatlCode_CH(const CString& /*code*/) const { return 0; }
};

/// The host's document: the way to all services of the model.
class HOST_API CDBDoc {
 public:
  virtual ~CDBDoc() = default;
  /// The bound host's current document; null when none is open.
  static CDBDoc* GetDocPoint();

  virtual CAttrCtrl& GetAttrCtrl() = 0;
  virtual CAttrCtrl2& GetAttrCtrl2() = 0;
  virtual CMembCtrl& GetMembCtrl() = 0;
  virtual CViewCtrl& GetViewCtrl() = 0;
  virtual CPostCtrl& GetPostCtrl() = 0;
  virtual CUnitCtrl& GetUnitCtrl() = 0;
  virtual CSectDB& GetSectDB() = 0;
  virtual IAluDgnTool& GetAluDgnTool() = 0;
  // A host without settings dialogs leaves these: their objects offer nothing.
  virtual CDataCtrl& GetDataCtrl();
  virtual CInitCtrl& GetInitCtrl();
  virtual CMatlDB& GetMatlDB();

  /// Length of an element between its nodes.
  virtual double calcLAVElem(const T_ELEM_D& elem) const = 0;
  /// True when nobody can answer a message box; messages then go to the history.
  virtual bool IsRegTestMode() const = 0;
};

/// Helpers around files and design codes.
class CDBLib {
 public:
  /// Internal names of the design codes that the host knows, in its order.
  /// @param indices receives the codes' numbers; null: not wanted
  HOST_API static void GetAluCodeNameList(CArray<CString>& names, CArray<int>* indices = nullptr);
  /// Name that the user sees of a code's internal name; an unknown name stays as it is.
  HOST_API static CString ViewConvertCodeName(const CString& internal);
  /// Internal name of a code's shown name; an unknown name stays as it is.
  HOST_API static CString GetConvertCodeName(const CString& shown);

  /// Path of the document's file with another extension, such as L".alu".
  HOST_API static CString MakeFileNameWithNewExt(const CString& extension, int option);
  /// Shows a text file to the user.
  /// @param mode 1; x, y, width, height: where the window goes; option: 0
  HOST_API static int RunTextEditor(const CString& path, const CString& title, int mode, int x,
                                    int y, int width, int height, int option);
};
