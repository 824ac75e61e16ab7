# Helpers shared by every library, program and test of the project.

set(TOMVERA_DATA_DIR ${CMAKE_SOURCE_DIR}/data)
set(TOMVERA_SHARED_DIR ${CMAKE_SOURCE_DIR}/../shared)

add_library(tomvera_options INTERFACE)
target_compile_definitions(tomvera_options INTERFACE
  QT_NO_CAST_TO_ASCII QT_USE_QSTRINGBUILDER QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
  TOMVERA_VERSIONE="${PROJECT_VERSION}")
target_compile_options(tomvera_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wnon-virtual-dtor)
if(TOMVERA_WERROR)
  target_compile_options(tomvera_options INTERFACE -Werror)
endif()
if(TOMVERA_SANITIZERS)
  target_compile_options(tomvera_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
                                                   -fno-sanitize-recover=undefined)
  target_link_options(tomvera_options INTERFACE -fsanitize=address,undefined)
endif()

# Qt headers only: project headers never go in a precompiled header.
function(tomvera_pch target)
  cmake_parse_arguments(A "WIDGETS" "" "" ${ARGN})
  set(headers <QtCore/QString> <QtCore/QStringList> <QtCore/QVariant> <QtCore/QDate> <QtCore/QDateTime>
              <QtCore/QList> <QtCore/QHash> <QtCore/QObject> <QtSql/QSqlQuery> <QtSql/QSqlRecord>
              <vector> <optional> <functional> <memory>)
  if(A_WIDGETS)
    list(APPEND headers <QtWidgets/QWidget> <QtWidgets/QLabel> <QtWidgets/QPushButton> <QtWidgets/QLineEdit>
                        <QtWidgets/QTableWidget> <QtGui/QPainter>)
  endif()
  target_precompile_headers(${target} PRIVATE ${headers})
endfunction()

# tomvera_library(<name> <dir> [WIDGETS] [DEPS ...])
# Every .cpp/.h directly in <dir> belongs to the library.
function(tomvera_library name dir)
  cmake_parse_arguments(A "WIDGETS" "" "DEPS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${dir}/*.cpp ${dir}/*.h)
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${A_DEPS} PRIVATE tomvera_options)
  if(A_WIDGETS)
    target_link_libraries(${name} PUBLIC Qt6::Widgets)
    tomvera_pch(${name} WIDGETS)
  else()
    tomvera_pch(${name})
  endif()
endfunction()

# tomvera_test(<subsystem> [GUI] LIBS ... SOURCES ...)
# One executable per subsystem; each class marked with TOMVERA_TEST(Class) becomes its own CTest test.
function(tomvera_test name)
  cmake_parse_arguments(A "GUI" "" "LIBS;SOURCES;LABELS" ${ARGN})
  set(exe test_${name})
  add_executable(${exe} ${A_SOURCES} ${CMAKE_SOURCE_DIR}/tests/support/testmain.cpp)
  target_link_libraries(${exe} PRIVATE ${A_LIBS} tomvera_testsupport Qt6::Test tomvera_options)
  tomvera_pch(${exe})
  if(A_GUI)
    target_compile_definitions(${exe} PRIVATE TOMVERA_TEST_GUI)
    target_link_libraries(${exe} PRIVATE Qt6::Widgets)
  endif()
  foreach(src IN LISTS A_SOURCES)
    # The test classes are read from the sources: a new or renamed class must re-run the configuration.
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${src})
    file(STRINGS ${CMAKE_CURRENT_SOURCE_DIR}/${src} lines REGEX "^TOMVERA_TEST\\([A-Za-z0-9_]+\\)")
    foreach(line IN LISTS lines)
      string(REGEX REPLACE "^TOMVERA_TEST\\(([A-Za-z0-9_]+)\\).*" "\\1" cls "${line}")
      add_test(NAME ${name}.${cls} COMMAND ${exe} ${cls})
      set(labels ${name} ${A_LABELS})
      if(A_GUI)
        list(APPEND labels ui)
      else()
        list(APPEND labels unit)
      endif()
      set_tests_properties(${name}.${cls} PROPERTIES LABELS "${labels}"
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TOMVERA_DATA_DIR=${TOMVERA_DATA_DIR};TOMVERA_TEST_DIR=${CMAKE_CURRENT_SOURCE_DIR}"
        TIMEOUT 300)
    endforeach()
  endforeach()
endfunction()

# The pictures the program ships (beach items) travel next to each program that may create an archive.
function(tomvera_copia_immagini target)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${TOMVERA_DATA_DIR}/immagini $<TARGET_FILE_DIR:${target}>/immagini
    VERBATIM)
endfunction()
