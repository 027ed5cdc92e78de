#pragma once
#include "ui/B.h"
