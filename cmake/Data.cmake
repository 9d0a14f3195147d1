# The data folders beside the program: plug-ins compiled from data/encodings, font
# tables, Plugin.INI. A cross build makes them with the zorvak of the preset "native".
if(CMAKE_CROSSCOMPILING)
  file(GLOB_RECURSE host_sources CONFIGURE_DEPENDS
    "${CMAKE_SOURCE_DIR}/src/base/*" "${CMAKE_SOURCE_DIR}/src/engine/*"
    "${CMAKE_SOURCE_DIR}/src/textfiles/*" "${CMAKE_SOURCE_DIR}/src/console/*")
  set(zorvak_host "${CMAKE_SOURCE_DIR}/build/native/zorvak")
  add_custom_command(OUTPUT "${zorvak_host}"
    COMMAND "${CMAKE_COMMAND}" --preset native
    COMMAND "${CMAKE_COMMAND}" --build --preset native --target zorvak
    COMMAND "${CMAKE_COMMAND}" -E touch "${zorvak_host}"
    WORKING_DIRECTORY "${CMAKE_SOURCE_DIR}"
    DEPENDS ${host_sources}
    COMMENT "Building a native zorvak for making data" VERBATIM)
  set(data_dir "${CMAKE_BINARY_DIR}/dist")
else()
  set(zorvak_host "$<TARGET_FILE:zorvak>")
  set(data_dir "${CMAKE_BINARY_DIR}")
endif()

set(made "")
file(GLOB encodings CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/data/encodings/*.txt")
foreach(source IN LISTS encodings)
  get_filename_component(name "${source}" NAME_WE)
  set(plugin "${data_dir}/conversion Plugins/${name}.dll")
  add_custom_command(OUTPUT "${plugin}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${data_dir}/conversion Plugins"
    COMMAND "${zorvak_host}" plugin build "${source}" "${plugin}"
    DEPENDS "${source}" "${zorvak_host}"
    VERBATIM)
  list(APPEND made "${plugin}")
endforeach()

function(zc_copy from to)
  add_custom_command(OUTPUT "${to}"
    COMMAND "${CMAKE_COMMAND}" -E copy "${from}" "${to}"
    DEPENDS "${from}" VERBATIM)
  set(made ${made} "${to}" PARENT_SCOPE)
endfunction()

file(GLOB tables CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/data/fonts/*.tbl")
foreach(table IN LISTS tables)
  get_filename_component(name "${table}" NAME)
  zc_copy("${table}" "${data_dir}/Font conversion Table/${name}")
endforeach()
if(EXISTS "${CMAKE_SOURCE_DIR}/data/Plugin.INI")
  zc_copy("${CMAKE_SOURCE_DIR}/data/Plugin.INI" "${data_dir}/Plugin.INI")
endif()

if(WIN32)
  find_package(Python3 COMPONENTS Interpreter)
  if(NOT Python3_FOUND)
    message(STATUS "Sounds are off: nothing makes them (Debian package python3)")
  endif()
endif()
if(WIN32 AND Python3_FOUND)
  set(sounds "${data_dir}/Over.wav" "${data_dir}/click.wav" "${data_dir}/Complete.wav")
  add_custom_command(OUTPUT ${sounds}
    COMMAND "${Python3_EXECUTABLE}" "${CMAKE_SOURCE_DIR}/tools/make-sounds.py" "${data_dir}"
    DEPENDS "${CMAKE_SOURCE_DIR}/tools/make-sounds.py" VERBATIM)
  add_custom_target(sounds DEPENDS ${sounds})
  list(APPEND made ${sounds})
endif()

if(CMAKE_CROSSCOMPILING)
  zc_copy("${CMAKE_SOURCE_DIR}/LICENSE" "${data_dir}/LICENSE.txt")
  add_custom_command(OUTPUT "${data_dir}/zorvak.exe"
    COMMAND "${CMAKE_STRIP}" -o "${data_dir}/zorvak.exe" "$<TARGET_FILE:zorvak>"
    DEPENDS zorvak VERBATIM)
  list(APPEND made "${data_dir}/zorvak.exe")
endif()
add_custom_target(data ALL DEPENDS ${made})

# What a source that is gone once made must not ship. Only that goes: a plug-in that somebody
# put there is theirs.
foreach(file IN LISTS ZC_MADE)
  if(NOT file IN_LIST made)
    file(REMOVE "${file}")
  endif()
endforeach()
set(ZC_MADE "${made}" CACHE INTERNAL "Data files of the last configuration")
