# Builds for 64-bit Windows on Debian, with mingw-w64 and POSIX threads (the preset `windows`).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triple x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_Fortran_COMPILER ${triple}-gfortran-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

# Libraries and headers are those made for Windows (packaging/windows/build_libraries), programs that
# help to build are this machine's.
cmake_path(SET libraries NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../build/windows-deps)
set(ALUFRAME_WINDOWS_LIBRARIES ${libraries} CACHE PATH "Folder of the libraries made for Windows")
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ALUFRAME_WINDOWS_LIBRARIES)
set(CMAKE_FIND_ROOT_PATH ${ALUFRAME_WINDOWS_LIBRARIES}/usr /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
