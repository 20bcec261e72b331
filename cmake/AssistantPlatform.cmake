get_property(platforms CACHE ZDE_PLATFORM PROPERTY STRINGS)
if(NOT ZDE_PLATFORM IN_LIST platforms)
    string(REPLACE ";" ", " platforms "${platforms}")
    message(FATAL_ERROR "ZDE_PLATFORM=${ZDE_PLATFORM} is none of these: ${platforms}")
endif()

# The desktop's own development files, where they are installed. Part of them is of no use beside platform/,
# which defines the same targets.
set(ZDE_PLATFORM_BUNDLED TRUE)
if(NOT ZDE_PLATFORM STREQUAL "bundled")
    set(missing)
    foreach(package zcc ztk zframeworkdbus)
        find_package(${package} QUIET)
        if(NOT ${package}_FOUND OR NOT TARGET ${package})
            list(APPEND missing ${package})
        endif()
    endforeach()
    list(LENGTH missing missing_count)
    if(missing_count EQUAL 0)
        set(ZDE_PLATFORM_BUNDLED FALSE)
    elseif(missing_count LESS 3 OR ZDE_PLATFORM STREQUAL "system")
        string(REPLACE ";" ", " missing "${missing}")
        message(FATAL_ERROR
            "ZDE_PLATFORM=${ZDE_PLATFORM}, but of the desktop's development files these are missing, or do "
            "not define a target of that name: ${missing}. Install them, or choose ZDE_PLATFORM=bundled "
            "to build against platform/.")
    endif()
endif()
