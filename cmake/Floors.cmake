# One library a folder of src/, and no more on its include path than the folders that it may use: an include
# against the floors finds no file. src/CMakeLists.txt holds the table.

file(WRITE ${PROJECT_BINARY_DIR}/floors/table "")

# lumeo_floor(folder SEES folder…): what the code of a folder may include beside its own headers; what those
# folders see, it sees too. Link lumeo_floor_NAME to build code of the folder, NAME being its last part.
function(lumeo_floor folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SEES")
    cmake_path(GET folder FILENAME name)
    cmake_path(GET folder PARENT_PATH above)
    # A folder of its own, with a link to the one that is meant: includes are written from src/, and src/
    # itself would show them all.
    set(view ${PROJECT_BINARY_DIR}/floors/${name})
    get_property(floors GLOBAL PROPERTY LUMEO_FLOORS)
    set_property(GLOBAL APPEND PROPERTY LUMEO_FLOORS ${folder})
    set(shown ${folder})
    if(floors MATCHES "${folder}/") # floors of their own within it are not shown with it
        set(source ${PROJECT_SOURCE_DIR}/src)
        file(GLOB shown CONFIGURE_DEPENDS RELATIVE ${source} ${source}/${folder}/*)
        list(REMOVE_ITEM shown ${floors})
        set(above ${folder})
    endif()
    file(REMOVE_RECURSE ${view})
    file(MAKE_DIRECTORY ${view}/${above})
    foreach(entry IN LISTS shown)
        file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${entry} ${view}/${entry} SYMBOLIC)
    endforeach()
    add_library(lumeo_floor_${name} INTERFACE)
    target_include_directories(lumeo_floor_${name} INTERFACE ${view})
    foreach(seen IN LISTS arg_SEES)
        cmake_path(GET seen FILENAME below)
        target_link_libraries(lumeo_floor_${name} INTERFACE lumeo_${below})
    endforeach()
    list(JOIN arg_SEES " " seen)
    file(APPEND ${PROJECT_BINARY_DIR}/floors/table "${folder} ${seen}\n")
endfunction()

# lumeo_add_library(name sources…): the library of a folder that knows no window toolkit.
function(lumeo_add_library name)
    add_library(lumeo_${name} STATIC ${ARGN})
    target_link_libraries(lumeo_${name} PUBLIC lumeo_floor_${name} PRIVATE lumeo_warnings)
    lumeo_share_precompiled(lumeo_${name} lumeo_platform)
endfunction()
