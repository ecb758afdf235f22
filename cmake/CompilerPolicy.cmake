# One compiler policy for every target: linked as an INTERFACE library, so that nobody can forget a
# flag and nobody has to repeat one.
add_library(halvane_policy INTERFACE)
if(MSVC)
  target_compile_options(halvane_policy INTERFACE
    /W4 /utf-8 /permissive- $<$<BOOL:${HALVANE_WERROR}>:/WX>)
else()
  target_compile_options(halvane_policy INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
    $<$<BOOL:${HALVANE_WERROR}>:-Werror>)
endif()
target_compile_definitions(halvane_policy INTERFACE
  QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII
  QT_NO_URL_CAST_FROM_STRING
  QT_NO_KEYWORDS
  QT_NO_CONTEXTLESS_CONNECT
  QT_NO_FOREACH
  QT_DISABLE_DEPRECATED_BEFORE=0x060400
  QT_USE_QSTRINGBUILDER)

# Where sources are compiled together, g++ takes each but the outermost for a header, in which a class
# with members of a local type would be wrong; and for clang a parameter hides what another source of
# the folder has under the same name.
if(CMAKE_UNITY_BUILD)
  target_compile_options(halvane_policy INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>
    $<$<CXX_COMPILER_ID:Clang>:-Wno-shadow>)
endif()

if(HALVANE_SANITIZE)
  add_compile_options(-fsanitize=${HALVANE_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${HALVANE_SANITIZE})
endif()

# The fuzzer follows the branches of what is compiled for it: the libraries, not its own few lines.
if(HALVANE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# What is built for testing takes little room and is linked often: debug information is compressed, a
# library is a list of its objects, and mold, which is there when tools/setup was, links in no time.
# What customers run is made the plain way.
if(CMAKE_BUILD_TYPE STREQUAL "Debug" AND UNIX AND NOT APPLE)
  add_compile_options(-gz)
  add_link_options(-gz)
  set(CMAKE_CXX_ARCHIVE_CREATE "<CMAKE_AR> qcT <TARGET> <LINK_FLAGS> <OBJECTS>")
  set(CMAKE_CXX_ARCHIVE_APPEND "<CMAKE_AR> qT <TARGET> <LINK_FLAGS> <OBJECTS>")
  find_program(HALVANE_MOLD mold)
  if(HALVANE_MOLD)
    add_link_options(-fuse-ld=mold)
  endif()
endif()

# What customers run is hardened as Debian hardens its own: bytes from outside are what this program
# lives on. It says nothing of where it was built. Line tables cost a compilation a few hundredths of its
# time, and the programs nothing that is loaded: with them the addresses of a crash become lines of the
# source. The package keeps them apart (packaging/README.md).
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND UNIX AND NOT APPLE AND NOT HALVANE_SANITIZE)
  include(CheckPIESupported)
  check_pie_supported()
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  add_compile_options(-g1 -fstack-protector-strong -Wformat -Werror=format-security -D_FORTIFY_SOURCE=2
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
  add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,--as-needed)
endif()

# halvane_library(<folder> <logic|forms> SOURCES ... LIBS ...): one of the two libraries of a
# folder. The logic library does not link Widgets: what a window needs is the forms library's.
function(halvane_library folder kind)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  set(target halvane_${folder}_${kind})
  add_library(${target} STATIC ${ARG_SOURCES})
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${target} PUBLIC ${ARG_LIBS} PRIVATE halvane_policy)
endfunction()
