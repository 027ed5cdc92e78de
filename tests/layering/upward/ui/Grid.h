#pragma once
#include "marks/Nota.h"
