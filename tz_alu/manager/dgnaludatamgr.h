#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "host/framework/collections.h"
#include "host/tz_db/services.h"
#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_dgn_memb.h"
#include "tz_alu/records/alu_forces.h"
#include "tz_alu/tz_alu_api.h"

class CALUCode_GB50429_07;

/// The one object through which a host starts an aluminium design run: it gathers sections,
/// materials, parameters and forces from the host, has the engine check every element for every
/// combination at up to five positions, and writes the results to the host's store.
///
///     IAluDgnDataMgr::Instance()->CheckCode(nullptr);  // the selection, or the whole model
///     IAluDgnDataMgr::Instance()->MakeReport(nullptr, L"");  // and their calculation report
///
/// One thread calls it; only `Instance` is safe against concurrent first use. No exception leaves
/// the public entries. All values are in the host's current units, which a run sets to N and mm.
class TZ_ALU_API IAluDgnDataMgr {
 public:
  using KEYS = CArray<UINT>;
  using LCOMBS = CArrayEx<T_LCOM_MAXMIN_K>;

  static IAluDgnDataMgr* Instance();

  IAluDgnDataMgr(const IAluDgnDataMgr&) = delete;
  IAluDgnDataMgr& operator=(const IAluDgnDataMgr&) = delete;

  // --- the run ---

  /// Checks the elements of `keys`; with null, those selected in the view, or all when none is.
  /// @return the host's design flag (nonzero when the result file is consistent), or 0 when
  ///         nothing was checked, the user cancelled, or anything failed
  int CheckCode(const KEYS* keys);
  /// Checks one element for all combinations and stores the records when its data say so.
  /// @return 0 when its design data cannot be assembled
  int CheckCode(UINT elem, const LCOMBS& lcombs, T_RALU_D& governing);
  /// Checks one element for one combination. @return 0 when the host has no forces for it
  int CheckCode(UINT elem, T_LCOM_MAXMIN_K lcomb, ALU_DGN_DATA& data, T_RALU_D& result);

  // --- the report ---

  /// Writes the calculation report of the elements of `keys` (null as above) and opens it in the
  /// host's text editor. Each governing check is run once more with its block. An empty path is the
  /// document's name with ".alu".
  /// @return 1 after the editor was started, 0 when there is nothing to report or anything failed
  int MakeReport(const KEYS* keys, CString path);
  /// Blocks of the last report that could not be written whole, such as on a full disk. The report
  /// itself passes over them in silence.
  int GetLostReportBlocks() const;
  /// Who gets the text of the next reports piece by piece, as it is before it is narrowed to the
  /// user's code page; nothing: nobody.
  void SetReportText(std::function<void(const std::wstring&)> receiver) {
    m_reportText = std::move(receiver);
  }
  /// Appends one element to the report. One that was never checked is checked now and stored.
  /// @return 0 when its data or results cannot be had
  int MakeReport(UINT elem);

  // --- what both share ---

  /// Elements of the view's selection, or all; only those of aluminium.
  int GetDgnKeys(KEYS& out);
  /// Keeps the elements of aluminium.
  int FiltAluKeys(const KEYS& in, KEYS& out);
  /// Design combinations of aluminium. @return their number
  int GetDgnLCombs(LCOMBS& out);
  /// Tells the user what is missing. @return 1 when there are elements and combinations, else 0
  int ShowErrorMessage(int nElems, int nLcombs);
  /// Fills the four buffers. @return 0 when one of them could not be built
  int MakeBuffData(const KEYS& keys, const LCOMBS& lcombs);
  /// Assembles the design input of an element. @return 0 when a part of it is missing
  int GetDgnData(UINT elem, ALU_DGN_DATA& data);
  CDBDoc* GetDoc() const;

  // --- members ---

  /// Builds the members of the elements. @return 0 when an element cannot be read
  int MakeBuffMemb(const KEYS& keys);
  /// Display key of the member that includes the element, 0 when there is none.
  UINT GetElemShowKey(UINT elem) const;
  /// The element's member; null, after a release assertion, when it was not built.
  ALU_DGN_MEMB* GetMembInfo(UINT elem);
  /// End conditions of a node about y and z: 0 fixed, 1 pinned, 2 free. Always 1.
  int GetSupport(UINT node, UINT* memberElems, int* codeY, int* codeZ) const;
  /// 1 when something holds the member between its ends.
  int HaveMidSupprt(const ALU_DGN_MEMB& memb) const;
  /// 1 when the element runs against its member's direction.
  int IsReverseToMemb(UINT elem);

  // --- sections and materials ---

  int MakeBuffSect(const KEYS& keys);
  int MakeBuffMatl(const KEYS& keys);
  /// Converts a section. @return 0 for a shape that the checks do not know
  int GetSect(const T_SECT_DESIGN_D& sect, ALU_SECT_DATA& out) const;
  /// Has the host compute the section's warping properties, once. A computation that fails leaves
  /// those that the section has.
  void Calcfor7thDOF(T_SECT_DESIGN_D& sect) const;
  int GetMatd(const T_MATD_D& matl, ALU_MATL_DATA& out) const;

  // --- parameters ---

  /// Design parameters of an element. @return 0 when it has no member
  int GetPara(UINT elem, ALU_PARA_DATA& out);
  /// Sway flags about y and z, and the element's moment factors. @return 1 when it has any
  int GetBetaM(UINT elem, int* swayY, int* swayZ, T_CMFT_D& cmft) const;
  int GetKFator(UINT elem, double* ky, double* kz);
  int GetSlender(UINT elem, double* limitCompr, double* limitTension, int* fromAttribute) const;
  /// Seismic type of a combination, 0 not seismic.
  int GetSesiType(const T_LCOM_MAXMIN_K& key) const;

  // --- forces ---

  int MakeBuffLcomb(const LCOMBS& lcombs);
  int GetDgnForce(UINT elem, T_LCOM_MAXMIN_K key, T_ALU_FORCE_D& out) const;
  /// Moments at the ends of the element's member; `own` are the element's forces for `key`.
  AluDgnEndForce& GetDgnEndForce(AluDgnEndForce& out, UINT elem, T_LCOM_MAXMIN_K key,
                                 const T_ALU_FORCE_D& own);
  /// Forces of position 0..4. @return 0 for any other position
  int GetDgnSectForce(const AluDgnEndForce& end, const T_ALU_FORCE_D& force, int pos,
                      AluDgnSectForce& out) const;
  /// 1 when the position counts as an end section of the member.
  int IsEndSectCal(UINT elem, int pos);

 private:
  template <class VALUE>
  using MAP = CMap<UINT, UINT, VALUE, const VALUE&>;

  IAluDgnDataMgr();
  ~IAluDgnDataMgr();

  int RunCheck(const KEYS* keys, const T_UNIT_INDEX& userUnits);
  int CheckElements(const KEYS& keys, const LCOMBS& lcombs, const T_UNIT_INDEX& userUnits);
  int RunReport(const KEYS* keys, const CString& path, const T_UNIT_INDEX& userUnits);
  int GetRunKeys(const KEYS* keys, KEYS& elems, LCOMBS& lcombs);
  void HandOverText() const;
  int ReadGoverning(UINT elem, T_RALU_D& record);
  /// Makes a stored check again with its block. @return what came of it
  T_RALU_RLT ReportItem(ALU_DGN_DATA& data, const T_RALU_ITEM& item, int type);
  int BuildMemb(UINT elem, UINT displayKey, ALU_DGN_MEMB& memb) const;
  int FillFromChain(const CArrayEx<UINT>& elems, ALU_DGN_MEMB& memb) const;
  int FillFromElement(UINT elem, ALU_DGN_MEMB& memb) const;
  void SetEndConditions(ALU_DGN_MEMB& memb) const;

  std::unique_ptr<CALUCode_GB50429_07> m_pCode;
  std::function<void(const std::wstring&)> m_reportText;
  MAP<ALU_DGN_MEMB> m_mapMemb;   // by display key
  MAP<ALU_SECT_DATA> m_mapSect;  // by section number
  MAP<ALU_MATL_DATA> m_mapMatl;  // by material number
  MAP<int> m_mapLcomb;           // seismic type by combination number
};
