#pragma once

#include <QString>
#include <optional>

namespace vorel::dao::jet {

// A date literal's content (month first whatever the regional settings; another order only where that is impossible)
// in stored form, "YYYY-MM-DD HH:MM:SS"; a time alone is one of 1899-12-30. Nothing if it cannot be read.
std::optional<QString> parseDateLiteral(QStringView text);

}
