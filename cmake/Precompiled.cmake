# One precompiled header for every target, since g++ makes one of 200 MB whatever is in it: a second
# one for what needs no window would cost more disk than it saves time. It names Qt Widgets and Qt
# Test for all sources, but a logic library still links neither, and tests/lint/layers.py reads what
# each source includes.
option(HALVANE_PCH "Compile what all sources include once (for building often; not with clang-tidy)" OFF)

# halvane_precompile(<folder>...): for each target that these folders and those below them make.
function(halvane_precompile)
  foreach(folder ${ARGN})
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target ${targets})
      get_target_property(type ${target} TYPE)
      if(type MATCHES "^(EXECUTABLE|STATIC_LIBRARY)$")
        target_precompile_headers(${target} REUSE_FROM halvane_pch)
        # These have no header for moc, or few: nothing is there to be saved, and it takes half a
        # second to read what is precompiled.
        if(target MATCHES "^test_|_logic$|_main$")
          get_target_property(binaries ${target} BINARY_DIR)
          set_source_files_properties(${binaries}/${target}_autogen/mocs_compilation.cpp
            TARGET_DIRECTORY ${target} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
        endif()
      endif()
    endforeach()
    get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    halvane_precompile(${folders})
  endforeach()
endfunction()

# halvane_stand_alone(<source>...): where several sources are compiled as one (CMAKE_UNITY_BUILD),
# these are not among them, since they have names of their own that others of the folder have, too.
function(halvane_stand_alone)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

if(HALVANE_PCH)
  # Qt Test would name the folder of each target in its compile line, for the sake of files that are
  # found beside a test. None is here, and a header compiled for one line does not fit another.
  set_target_properties(Qt6::Test PROPERTIES INTERFACE_COMPILE_DEFINITIONS QT_TESTLIB_LIB)
  # What Qt's headers ask for has to be answered alike everywhere.
  target_compile_definitions(halvane_policy INTERFACE
    QT_GUI_LIB QT_NETWORK_LIB QT_TESTLIB_LIB QT_WIDGETS_LIB)

  file(WRITE ${CMAKE_BINARY_DIR}/precompiled.cpp "")
  add_library(halvane_pch STATIC ${CMAKE_BINARY_DIR}/precompiled.cpp)
  set_target_properties(halvane_pch PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
  target_link_libraries(halvane_pch PRIVATE Qt6::Widgets Qt6::Network Qt6::Test halvane_policy)
  target_precompile_headers(halvane_pch PRIVATE ${CMAKE_CURRENT_LIST_DIR}/Precompiled.h)
endif()
