# bwm_add_test(NAME <name> SOURCES <files...> LIBS <targets...>
#              [LABELS <labels...>] [TIMEOUT <seconds>] [ENV <VAR=value...>])
# One GoogleTest binary registered as one CTest test. Every test gets its own
# HOME and XDG folders under the build tree so that QSettings never touches the
# user's own configuration, and widgets render offscreen. Under AddressSanitizer
# every test reads the project's one leak suppression file, under
# ThreadSanitizer its one race suppression file.
if(CMAKE_CROSSCOMPILING)
  # GoogleTest from Debian's sources, built by the cross compiler; its own warnings aren't ours.
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
  foreach(lib gtest gtest_main gmock gmock_main)
    add_library(GTest::${lib} ALIAS ${lib})
  endforeach()
else()
  find_package(GTest REQUIRED)
endif()
set(BWM_LSAN_SUPPRESSIONS ${CMAKE_CURRENT_LIST_DIR}/lsan.supp)
set(BWM_TSAN_SUPPRESSIONS ${CMAKE_CURRENT_LIST_DIR}/tsan.supp)

function(bwm_add_test)
  cmake_parse_arguments(T "" "NAME;TIMEOUT" "SOURCES;LIBS;LABELS;ENV" ${ARGN})
  add_executable(${T_NAME} ${T_SOURCES})
  target_link_libraries(${T_NAME} PRIVATE ${T_LIBS} GTest::gmock GTest::gtest_main)
  if(TARGET Qt5::Test)
    target_link_libraries(${T_NAME} PRIVATE Qt5::Test)
  endif()
  target_compile_definitions(${T_NAME} PRIVATE
    BWM_SOURCE_DIR="${PROJECT_SOURCE_DIR}" BWM_BINARY_DIR="${PROJECT_BINARY_DIR}")
  if(NOT T_TIMEOUT)
    set(T_TIMEOUT 120)
  endif()
  set(home ${PROJECT_BINARY_DIR}/test-home/${T_NAME})
  file(MAKE_DIRECTORY ${home})
  if(BWM_SANITIZE STREQUAL "address")
    list(APPEND T_ENV LSAN_OPTIONS=suppressions=${BWM_LSAN_SUPPRESSIONS})
  elseif(BWM_SANITIZE STREQUAL "thread")
    list(APPEND T_ENV TSAN_OPTIONS=suppressions=${BWM_TSAN_SUPPRESSIONS})
  endif()
  add_test(NAME ${T_NAME} COMMAND ${T_NAME})
  set_tests_properties(${T_NAME} PROPERTIES
    TIMEOUT ${T_TIMEOUT}
    LABELS "${T_LABELS}"
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;HOME=${home};XDG_CONFIG_HOME=${home}/config;XDG_DATA_HOME=${home}/data;XDG_CACHE_HOME=${home}/cache;XDG_RUNTIME_DIR=${home}/run;${T_ENV}")
  # Streaming tests measure rates and losses: they get the machine to themselves.
  if("camera" IN_LIST T_LABELS)
    set_tests_properties(${T_NAME} PROPERTIES RUN_SERIAL TRUE)
  endif()
endfunction()
