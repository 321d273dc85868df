# Only byte code is generated from a target's QML files. As C++, bindings to the theme would not be faster,
# but would take a minute to compile. All generated files are compiled as one, because each alone would read
# the same headers for a second.
function(lumeo_bundle_byte_code target)
    set_target_properties(${target} PROPERTIES
        QT_QMLCACHEGEN_ARGUMENTS --only-bytecode
        UNITY_BUILD ON
        UNITY_BUILD_MODE GROUP)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "/\\.rcc/qmlcache/.*\\.cpp$")
    set_source_files_properties(${sources} PROPERTIES UNITY_GROUP byte_code)
endfunction()
