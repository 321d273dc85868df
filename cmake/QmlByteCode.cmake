# Only byte code is generated from a target's QML files. As C++, bindings to the theme would not be faster,
# but would take a minute to compile. All generated files are compiled as one, because each alone would read
# the same headers for a second.
function(lumeo_bundle_byte_code target)
    set_target_properties(${target} PROPERTIES
        QT_QMLCACHEGEN_ARGUMENTS --only-bytecode
        UNITY_BUILD ON
        UNITY_BUILD_MODE GROUP)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    set(byte_code ${sources})
    list(FILTER byte_code INCLUDE REGEX "/\\.rcc/qmlcache/")
    set_source_files_properties(${byte_code} PROPERTIES UNITY_GROUP byte_code)
    if(CMAKE_UNITY_BUILD) # the target has groups, so the files of our own need them as well
        list(REMOVE_ITEM sources ${byte_code})
        set(count 0)
        foreach(source IN LISTS sources)
            math(EXPR group "${count} / ${CMAKE_UNITY_BUILD_BATCH_SIZE}")
            math(EXPR count "${count} + 1")
            set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${group})
        endforeach()
    endif()
endfunction()
