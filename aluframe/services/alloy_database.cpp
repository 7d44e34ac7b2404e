#include "aluframe/services/alloy_database.h"

#include "aluframe/catalogue/alloys.h"
#include "aluframe/services/text.h"

namespace aluframe::services {

bool is_alloy_standard(const CString& code) {
  return to_utf8(code) == catalogue::alloy_standard;
}

int AlloyDatabase::GetDesignCodeList(int type, CArray<CString>& out) const {
  out.RemoveAll();
  if (type == alloy_database_type) out.Add(to_wide(catalogue::alloy_standard));
  return static_cast<int>(out.GetSize());
}

int AlloyDatabase::GetAluminumNameList(const CString& code, CArray<CString>& out) const {
  out.RemoveAll();
  if (!is_alloy_standard(code)) return 0;
  for (const catalogue::Alloy& alloy : catalogue::alloys()) out.Add(to_wide(alloy.grade));
  return static_cast<int>(out.GetSize());
}

int AlloyDatabase::GetAluminumData(const CString& code, const CString& grade, CString& text,
                                   T_ALUMINUM_DATA& out, int, double) const {
  if (!is_alloy_standard(code)) return 0;
  const catalogue::Alloy* alloy = catalogue::find_alloy(to_utf8(grade));
  if (alloy == nullptr) return 0;
  const model::Material material = catalogue::material_of(*alloy);
  text = grade;
  out = {.dElast = scale_.stress(material.e),
         .dPoisson = material.poisson,
         .dFu = scale_.stress(material.fu),
         .dF02Thin = scale_.stress(material.f02_thin),
         .dF02Thick = scale_.stress(material.f02_thick)};
  return 1;
}

}  // namespace aluframe::services
