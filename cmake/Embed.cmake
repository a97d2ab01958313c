# fx_embed(<target> <accessor> <base-dir> <file>...)
#
# Puts text files into the library as resources, so that an installed program needs no data folder:
# generates a function `std::span<const Resource> <accessor>()` in FX_Algen::resources that lists the
# files by their path relative to <base-dir>, in the order given. A change of a file rebuilds it.
function(fx_embed target accessor base)
    set(out ${CMAKE_CURRENT_BINARY_DIR}/embedded_${accessor}.cpp)
    add_custom_command(
        OUTPUT ${out}
        COMMAND ${CMAKE_COMMAND} -DOUT=${out} -DACCESSOR=${accessor} -DBASE=${base} "-DFILES=${ARGN}"
                -P ${PROJECT_SOURCE_DIR}/cmake/EmbedScript.cmake
        DEPENDS ${ARGN} ${PROJECT_SOURCE_DIR}/cmake/EmbedScript.cmake
        COMMENT "Embedding ${accessor}"
        VERBATIM)
    target_sources(${target} PRIVATE ${out})
endfunction()
