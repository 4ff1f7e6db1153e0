#pragma once

namespace vorel::basic {

inline constexpr int twipsPerPixel = 15;        // of a screen of 96 dots to the inch

}
