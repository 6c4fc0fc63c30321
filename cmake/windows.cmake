# tessel.exe, its Win32 tests and the tools that drive it under Wine.
add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0A00 WINVER=0x0A00)
if(MINGW)
  # One self-contained executable: no libstdc++, libgcc or winpthread DLLs beside it.
  add_link_options(-static -static-libgcc -static-libstdc++)
endif()
set(TESSEL_WIN_LIBS comctl32 shell32 ole32 oleaut32 uuid shlwapi advapi32 user32 gdi32 comdlg32 winmm uxtheme windowscodecs)

add_library(tessel_win STATIC ${TESSEL_WIN_SOURCES})
target_include_directories(tessel_win PUBLIC ${CMAKE_SOURCE_DIR})
target_link_libraries(tessel_win PUBLIC tessel_portable ${TESSEL_WIN_LIBS})

include(${CMAKE_SOURCE_DIR}/res/resources.cmake)

add_executable(tessel WIN32 ${CMAKE_SOURCE_DIR}/src/frame/main_win.cpp ${TESSEL_RESOURCE_FILE})
target_link_libraries(tessel PRIVATE tessel_win)
if(MINGW)
  # The shipped executable carries no debug sections; the tests link the same code unstripped.
  target_link_options(tessel PRIVATE -municode -s)
endif()
set_target_properties(tessel PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

# Help pages ship beside the executable.
add_custom_command(TARGET tessel POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/docs/help ${CMAKE_BINARY_DIR}/bin/help)

# winctl.exe: waits for, inspects and closes Tessel's window from scripts and benchmarks.
add_executable(winctl ${CMAKE_SOURCE_DIR}/tools/winctl_win.cpp)
target_link_libraries(winctl PRIVATE user32 psapi)
if(MINGW)
  target_link_options(winctl PRIVATE -municode)
endif()
set_target_properties(winctl PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

set(gtest_disable_pthreads OFF CACHE BOOL "" FORCE)
add_subdirectory(${GTEST_SOURCE_DIR} googletest EXCLUDE_FROM_ALL)
add_subdirectory(${CMAKE_SOURCE_DIR}/tests/win ${CMAKE_BINARY_DIR}/tests/win)
add_subdirectory(${CMAKE_SOURCE_DIR}/bench/win ${CMAKE_BINARY_DIR}/bench/win)
