#include "tlxtool/command_line.h"

int main(int argumentCount, char** arguments)
{
    return runTool(argumentCount, arguments);
}
