#include "app/Startup.h"

int main(int argc, char *argv[])
{
    return runGlimmora(argc, argv);
}
