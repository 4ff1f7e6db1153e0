#include "records/frmMovies.h"
