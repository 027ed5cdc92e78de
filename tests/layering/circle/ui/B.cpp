#include "ui/A.h"
