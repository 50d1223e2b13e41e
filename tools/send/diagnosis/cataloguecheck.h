#pragma once

#include "finding.h"

constexpr char catalogueCheck[] = "catalogue";

/// This user can write the catalogues of banks.
Finding checkCatalogue();
