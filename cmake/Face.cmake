# What a program with windows carries (manifest, pictures, region shapes), and the tests
# of the controls. All of that needs the pictures.
find_program(RSVG_CONVERT rsvg-convert)
if(NOT RSVG_CONVERT)
  message(STATUS "Programs with windows are off: nothing draws their pictures (Debian package librsvg2-bin)")
  return()
endif()
if(NOT Python3_FOUND)
  message(STATUS "Programs with windows are off: nothing makes their shapes and pictures (Debian package python3)")
  return()
endif()
enable_language(RC)
set(face_resources "${CMAKE_SOURCE_DIR}/res/face.rc")
set_property(SOURCE "${face_resources}" APPEND PROPERTY
  OBJECT_DEPENDS "${CMAKE_SOURCE_DIR}/res/face.manifest")

# Window shapes: region data made from the lists of rectangles in data/shapes.
set(shape_dir "${CMAKE_BINARY_DIR}/shapes")
file(MAKE_DIRECTORY "${shape_dir}")
file(GLOB shapes CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/data/shapes/*.tsv")
foreach(source IN LISTS shapes)
  get_filename_component(name "${source}" NAME_WE)
  set(block "${shape_dir}/${name}.bin")
  add_custom_command(OUTPUT "${block}"
    COMMAND "${Python3_EXECUTABLE}" "${CMAKE_SOURCE_DIR}/tools/make-shape.py" "${source}" "${block}"
    DEPENDS "${source}" "${CMAKE_SOURCE_DIR}/tools/make-shape.py" VERBATIM)
  set_property(SOURCE "${face_resources}" APPEND PROPERTY OBJECT_DEPENDS "${block}")
endforeach()
set_property(SOURCE "${face_resources}" APPEND PROPERTY INCLUDE_DIRECTORIES "${shape_dir}")

# Pictures: the SVG sources of data/svg, drawn at 100, 125, 150 and 200 %.
set(picture_dir "${CMAKE_BINARY_DIR}/pictures")
file(GLOB svgs CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/data/svg/*.svg")
add_custom_command(OUTPUT "${picture_dir}/pictures.rc"
  COMMAND "${Python3_EXECUTABLE}" "${CMAKE_SOURCE_DIR}/tools/make-pictures.py"
          "${CMAKE_SOURCE_DIR}/data/svg" "${picture_dir}"
  DEPENDS ${svgs} "${CMAKE_SOURCE_DIR}/tools/make-pictures.py"
  COMMENT "Drawing the pictures" VERBATIM)
set_property(SOURCE "${face_resources}" APPEND PROPERTY OBJECT_DEPENDS "${picture_dir}/pictures.rc")
set_property(SOURCE "${face_resources}" APPEND PROPERTY INCLUDE_DIRECTORIES "${picture_dir}")

# Layout tables of the forms, by the form's name.
file(GLOB layouts CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/data/layout/*.tsv")
set(layout_list "")
foreach(source IN LISTS layouts)
  get_filename_component(name "${source}" NAME_WE)
  string(APPEND layout_list "${name} LAYOUT \"${name}.tsv\"\n")
endforeach()
file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/layouts/layouts.rc" CONTENT "${layout_list}" @ONLY)
set_property(SOURCE "${face_resources}" APPEND PROPERTY OBJECT_DEPENDS ${layouts} "${CMAKE_BINARY_DIR}/layouts/layouts.rc")
set_property(SOURCE "${face_resources}" APPEND PROPERTY INCLUDE_DIRECTORIES
  "${CMAKE_BINARY_DIR}/layouts" "${CMAKE_SOURCE_DIR}/data/layout")

# Compiled once; a program with windows links it.
add_library(face_resources OBJECT "${face_resources}")

# What nearly every source with a window includes, none of it ours but base/win.h: read once,
# it halves the time that a test takes to compile.
set(ZC_WINDOW_HEADERS <base/win.h> <commctrl.h> <algorithm> <functional> <memory> <string> <vector>)

# tests/windows/x_test.cpp becomes the program windows_x. The windows of a session share
# focus, mouse and clipboard: one program at a time.
if(gtest_found)
  file(GLOB window_tests CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/tests/windows/*.cpp")
  set(window_driver ${window_tests})
  list(FILTER window_tests INCLUDE REGEX "_test\\.cpp$")
  list(FILTER window_driver EXCLUDE REGEX "_test\\.cpp$")
  add_library(window_driver OBJECT ${window_driver})
  target_include_directories(window_driver PUBLIC "${CMAKE_SOURCE_DIR}/tests")
  target_link_libraries(window_driver PUBLIC face face_resources gtest)
  target_compile_definitions(window_driver PUBLIC ZC_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  target_compile_options(window_driver PUBLIC ${ZC_TEST_OPTIONS})
  target_precompile_headers(window_driver PRIVATE ${ZC_WINDOW_HEADERS} <gtest/gtest.h>)
  add_custom_target(windows_tests)
  foreach(source IN LISTS window_tests)
    get_filename_component(name "${source}" NAME_WE)
    string(REGEX REPLACE "_test$" "" name "windows_${name}")
    add_executable(${name} "${source}")
    target_link_libraries(${name} PRIVATE window_driver face_resources)
    target_precompile_headers(${name} REUSE_FROM window_driver)
    add_dependencies(windows_tests ${name})
    add_dependencies(${name} sounds)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 180 RESOURCE_LOCK display)
  endforeach()
endif()
