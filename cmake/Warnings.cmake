# Warnings are errors, in our code only.
set(ZC_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlapping copies in "literal" + std::string where there are none.
  list(APPEND ZC_WARNINGS -Wno-restrict)
endif()

add_library(zc_options INTERFACE)
target_include_directories(zc_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
target_compile_options(zc_options INTERFACE ${ZC_WARNINGS})

if(MINGW)
  # GCC keeps values in registers that a called function, as seen here, leaves alone. On Windows it does so
  # also for inline functions, of which the linker may take another source's copy that uses them.
  add_compile_options(-fno-ipa-ra)
endif()

if(WIN32)
  target_compile_definitions(zc_options INTERFACE
    UNICODE _UNICODE STRICT NOMINMAX WIN32_LEAN_AND_MEAN
    WINVER=0x0601 _WIN32_WINNT=0x0601 _WIN32_IE=0x0700 NTDDI_VERSION=0x06010000)
  target_link_libraries(zc_options INTERFACE advapi32 shell32 ole32)
endif()

if(ZC_SANITIZE)
  # These builds also count the engine's work, so that tests can say how it grows.
  add_compile_definitions(ZC_COUNT_WORK)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(ZC_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()
if(ZC_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
