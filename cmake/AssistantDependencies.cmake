# Finds what the build needs, and names the Debian package of whatever is missing.

# Like find_package(Qt5 ... REQUIRED) for one component, with an error that a packager can act on.
macro(assistant_require_qt component package)
    find_package(Qt5${component} 5.11 QUIET)
    if(NOT Qt5${component}_FOUND)
        message(FATAL_ERROR
            "Qt 5.11 or later, component ${component}, was not found. Debian package: ${package}")
    endif()
endmacro()

assistant_require_qt(Core qtbase5-dev)
assistant_require_qt(Gui qtbase5-dev)
assistant_require_qt(Widgets qtbase5-dev)
assistant_require_qt(DBus qtbase5-dev)
assistant_require_qt(Multimedia qtmultimedia5-dev)
assistant_require_qt(LinguistTools qttools5-dev)
if(BUILD_SANDBOX OR BUILD_TESTING)
    find_package(Threads REQUIRED) # a library of its own up to glibc 2.33
endif()
if(BUILD_TESTING)
    assistant_require_qt(Test qtbase5-dev)
    if(NOT TARGET Qt5::GuiPrivate)
        message(FATAL_ERROR
            "Qt's private headers were not found. Debian package: qtbase5-private-dev")
    endif()
endif()

# Like pkg_check_modules(... IMPORTED_TARGET), with an error that a packager can act on.
macro(assistant_require_pkgconfig prefix module package)
    find_package(PkgConfig QUIET)
    if(NOT PkgConfig_FOUND)
        message(FATAL_ERROR "pkg-config was not found. Debian package: pkg-config")
    endif()
    pkg_check_modules(${prefix} QUIET IMPORTED_TARGET ${module})
    if(NOT ${prefix}_FOUND)
        message(FATAL_ERROR "${module} was not found. Debian package: ${package}")
    endif()
    # At most -D_REENTRANT, which does nothing any more but to differ from the precompiled headers.
    set_property(TARGET PkgConfig::${prefix} PROPERTY INTERFACE_COMPILE_OPTIONS "")
endmacro()
