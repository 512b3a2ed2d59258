#include "Compositing.h"

bool Compositing::isOn()
{
    return true;
}
