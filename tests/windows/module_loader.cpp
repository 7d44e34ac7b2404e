// Loads the design module as a program of another maker does that knows nothing but its file.
//
//     module_loader load LIBRARY TIMES      loads and unloads it, and counts what stays in memory
//     module_loader refuse LIBRARY          expects that Windows refuses to load it
//     module_loader resource LIBRARY NUMBER prints the resource of type "Binary", in hexadecimal

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using Entry = void (*)();

int fail(const char* what) {
  std::printf("%s: error %lu\n", what, GetLastError());
  return 1;
}

HMODULE load(const std::wstring& library) {
  // What the library needs is looked for beside it first.
  return LoadLibraryExW(library.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

// Pieces in use of the heap that both libraries take their memory from.
std::size_t pieces_in_use() {
  std::size_t count = 0;
  PROCESS_HEAP_ENTRY piece = {};
  while (HeapWalk(GetProcessHeap(), &piece) != FALSE) {
    if ((piece.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) ++count;
  }
  return count;
}

int load_and_unload(const std::wstring& library) {
  const HMODULE module = load(library);
  if (module == nullptr) return fail("not loaded");
  const auto entry =
      reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(module, "Init_tz_aludll")));
  if (entry == nullptr) return fail("no entry");
  entry();
  if (FreeLibrary(module) == FALSE) return fail("not unloaded");
  return GetModuleHandleW(L"tz_alu.dll") == nullptr ? 0 : fail("still loaded");
}

int run_load(const std::wstring& library, int times) {
  std::size_t before = 0;
  for (int i = 0; i < times; ++i) {
    if (const int status = load_and_unload(library)) return status;
    if (i == times / 2) before = pieces_in_use();
  }
  const auto grown = static_cast<long long>(pieces_in_use()) - static_cast<long long>(before);
  std::printf("loaded %d times, pieces more since the middle: %lld\n", times, grown);
  return 0;
}

int run_refuse(const std::wstring& library) {
  if (load(library) != nullptr) return fail("loaded");
  std::printf("refused: error %lu\n", GetLastError());
  return 0;
}

int run_resource(const std::wstring& library, int number) {
  const HMODULE module = load(library);
  if (module == nullptr) return fail("not loaded");
  const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(number), L"Binary");
  if (found == nullptr) return fail("no resource");
  const auto* bytes = static_cast<const unsigned char*>(LockResource(LoadResource(module, found)));
  const DWORD size = SizeofResource(module, found);
  for (DWORD i = 0; i < size; ++i) std::printf("%02x", bytes[i]);
  std::printf("\n");
  return 0;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  if (argc < 3) return 2;
  const std::wstring what = argv[1];
  if (what == L"load") return run_load(argv[2], std::wcstol(argv[3], nullptr, 10));
  if (what == L"refuse") return run_refuse(argv[2]);
  if (what == L"resource") return run_resource(argv[2], std::wcstol(argv[3], nullptr, 10));
  return 2;
}
