#pragma once

#include "frame/frmCaddyControls.h"

#include <functional>

namespace vorel {

// The pane at the right describes the button under the pointer, and goes back to the row when the pointer leaves.
class CaddyTips : public QObject {
    Q_OBJECT
public:
    CaddyTips(CaddyControls &c, std::function<void()> goBack);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    CaddyControls &m_c;
    std::function<void()> m_goBack;
    bool m_shown = false;
};

}
