# One interface target carries the warnings and, where asked for, the sanitizers.
add_library(fx_options INTERFACE)
target_compile_options(fx_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
    -Wimplicit-fallthrough -Wcast-align -Wunused
    # GCC 12 reports it wrongly where a text literal and a std::string are joined and the code is optimised.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # Results are compared to the last bit: no contraction into fused operations.
    -ffp-contract=off)
if(FX_ALGEN_WERROR)
    target_compile_options(fx_options INTERFACE -Werror)
endif()
if(FX_ALGEN_SANITIZE)
    target_compile_options(fx_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(fx_options INTERFACE -fsanitize=address,undefined)
endif()
