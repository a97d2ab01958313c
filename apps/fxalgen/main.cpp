#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

#include "fxalgen/Command.h"

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    std::ios::sync_with_stdio(false);
    return FX_Algen::cli::Run(
        arguments, FX_Algen::cli::Streams{std::cin, std::cout, std::cerr, isatty(STDERR_FILENO) != 0});
}
