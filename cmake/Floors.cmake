# Each folder of src/ is one library. Its include path has only the folders that it may use, so an include
# against the floors finds no file. src/CMakeLists.txt has the table.

file(WRITE ${PROJECT_BINARY_DIR}/floors/table "")

# lumeo_floor(folder SEES folder…): the folders whose headers the code of a folder may include. The folder
# also sees what those folders see. Code of the folder links lumeo_floor_NAME, where NAME is its last part.
function(lumeo_floor folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SEES")
    cmake_path(GET folder FILENAME name)
    cmake_path(GET folder PARENT_PATH above)
    # The include path is a separate folder with a link to the folder that is meant. Includes are written from
    # src/, but src/ itself would show all folders.
    set(view ${PROJECT_BINARY_DIR}/floors/${name})
    get_property(floors GLOBAL PROPERTY LUMEO_FLOORS)
    set_property(GLOBAL APPEND PROPERTY LUMEO_FLOORS ${folder})
    set(shown ${folder})
    if(floors MATCHES "${folder}/") # nested folders with their own floors are not shown with it
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

# lumeo_add_library(name sources…): the library of a folder that does not use Qt.
function(lumeo_add_library name)
    add_library(lumeo_${name} STATIC ${ARGN})
    target_link_libraries(lumeo_${name} PUBLIC lumeo_floor_${name} PRIVATE lumeo_warnings)
    lumeo_share_precompiled(lumeo_${name} lumeo_platform)
endfunction()
