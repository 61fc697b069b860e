#include "phantom/CommandLine.h"

#include <cstdio>

int main(int argc, char** argv)
{
    std::string out, error;
    const int status = phantom::runPhantom({argv + (argc > 0 ? 1 : 0), argv + argc}, out, error);
    std::fputs(error.c_str(), stderr);
    const bool told = std::fputs(out.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    return told ? status : 1;
}
