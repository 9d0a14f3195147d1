# The gallery of the controls (tests/gallery): every style and state on sheets. Its sheets
# are a library, which tests use too.
file(GLOB gallery_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/tests/gallery/*.cpp")
list(FILTER gallery_sources EXCLUDE REGEX "/main\\.cpp$")
add_library(gallery_sheets STATIC ${gallery_sources}
  "${CMAKE_SOURCE_DIR}/tests/windows/Gui.cpp" "${CMAKE_SOURCE_DIR}/tests/windows/Pixels.cpp")
target_include_directories(gallery_sheets PUBLIC "${CMAKE_SOURCE_DIR}/tests")
target_link_libraries(gallery_sheets PUBLIC face)
target_compile_options(gallery_sheets PRIVATE ${ZC_TEST_OPTIONS})
target_precompile_headers(gallery_sheets PRIVATE ${ZC_WINDOW_HEADERS})

add_executable(gallery WIN32 "${CMAKE_SOURCE_DIR}/tests/gallery/main.cpp")
target_link_libraries(gallery PRIVATE gallery_sheets face_resources)
target_link_options(gallery PRIVATE -municode)
set_target_properties(gallery PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")
foreach(test windows_gallery windows_own_forms)
  if(TARGET ${test})
    target_link_libraries(${test} PRIVATE gallery_sheets)
  endif()
endforeach()
