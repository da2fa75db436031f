#include "plst/Item.h"
