#include <Kelvor/KelvorProgram.h>

int main(int argc, char** argv)
{
    return runKelvor(argc, argv);
}
