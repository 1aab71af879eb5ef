# Helpers shared by the library, test and benchmark folders.

# tavo_add_library(NAME EXPORT_HEADER FOLDERS...)
# A shared library made of every .cpp/.h/.qrc found in the given folders (not recursive).
# Public headers are installed below include/TavoLib/<folder>, so that a host writes the same
# includes as the library itself: #include "core/Property.h". Headers named *_p.h are the
# library's own and stay out of the install.
# EXPORT_HEADER is the path, as included, of the generated header that defines NAME's export
# macro (NAME in capitals, then _EXPORT: OMALIB_EXPORT for OmaLib).
function(tavo_add_library name export_header)
    set(sources)
    foreach(folder IN LISTS ARGN)
        file(GLOB found CONFIGURE_DEPENDS
            ${PROJECT_SOURCE_DIR}/${folder}/*.cpp
            ${PROJECT_SOURCE_DIR}/${folder}/*.h
            ${PROJECT_SOURCE_DIR}/${folder}/*.qrc)
        list(APPEND sources ${found})
        file(GLOB headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.h)
        list(FILTER headers EXCLUDE REGEX "_p\\.h$")
        install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TavoLib/${folder})
    endforeach()
    add_library(${name} SHARED ${sources})
    add_library(TavoLib::${name} ALIAS ${name})

    # Hidden visibility for everything but what carries the export macro. The header goes
    # into the build tree beside the sources' include root, and is installed with them.
    string(TOUPPER ${name} base)
    set(generated ${PROJECT_BINARY_DIR}/include/${export_header})
    generate_export_header(${name} BASE_NAME ${base} EXPORT_FILE_NAME ${generated})
    get_filename_component(export_dir ${export_header} DIRECTORY)
    install(FILES ${generated} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TavoLib/${export_dir})

    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/TavoLib>)
    set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    install(TARGETS ${name} EXPORT TavoLibTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()

# tavo_add_test_suite(FOLDER [DPI dpi...] [LIBS libs...])
# One QtTest executable per test folder, built from every .cpp in it. Each source file
# holds one test class named after the file and registered with TAVO_TEST(...); every class
# gets its own ctest entry "<folder>/<class>", run on the offscreen platform at 96 dpi.
# DPI adds further entries of the same classes at other logical densities.
function(tavo_add_test_suite folder)
    cmake_parse_arguments(ARG "" "" "DPI;LIBS" ${ARGN})
    string(REPLACE "/" "_" target "tst_${folder}")
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp
        ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.h)
    if(NOT sources)
        message(STATUS "tests/${folder}: no test sources yet")
        return()
    endif()
    add_executable(${target} ${sources})
    # A suite links only the library it tests (and what that stands on).
    if(folder STREQUAL "core")
        set(tested TavoLibCore)
    elseif(folder STREQUAL "units")
        set(tested OmaLib)
    elseif(folder STREQUAL "propertybrowser")
        set(tested TavoPropertyBrowser)
    else()
        set(tested TavoLibGui)
    endif()
    target_link_libraries(${target} PRIVATE TavoTestSupport ${tested} Qt::Test ${ARG_LIBS})
    set(classes)
    foreach(src IN LISTS sources)
        if(src MATCHES "\\.cpp$")
            get_filename_component(cls ${src} NAME_WE)
            list(APPEND classes ${cls})
        endif()
    endforeach()
    foreach(cls IN LISTS classes)
        add_test(NAME ${folder}/${cls} COMMAND ${target})
        set_tests_properties(${folder}/${cls} PROPERTIES
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_FONT_DPI=96;TAVO_TEST_CLASS=${cls}"
            TIMEOUT 300)
        foreach(dpi IN LISTS ARG_DPI)
            add_test(NAME ${folder}/${cls}@${dpi} COMMAND ${target})
            set_tests_properties(${folder}/${cls}@${dpi} PROPERTIES
                ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_FONT_DPI=${dpi};TAVO_TEST_CLASS=${cls}"
                TIMEOUT 300)
        endforeach()
    endforeach()
endfunction()
