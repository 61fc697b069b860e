#include "Run.h"

int main(int argc, char** argv)
{
    return runWorkstation(argc, argv);
}
