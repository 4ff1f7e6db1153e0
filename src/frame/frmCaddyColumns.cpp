#include "frame/frmCaddyColumns.h"

#include "platform/controls/form.h"

#include <QEvent>
#include <QHeaderView>
#include <QMenu>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::Grid;

namespace {

// Pixels.
constexpr int cellMargin = 9;           // at either side of a text
constexpr int leastWide = 160;          // of the wide column where the others leave less
constexpr int rowMargin = 3;

}

CaddyColumns::CaddyColumns(GridLayout &sizes) : m_sizes(sizes) {}

void CaddyColumns::show(Grid *grid, std::vector<controls::GridColumn> columns, Plan plan)
{
    if (!m_plans.contains(grid)) {
        m_views[grid->viewport()] = grid;
        grid->viewport()->installEventFilter(this);
        controls::on(grid, &Grid::ColResize, this, [this, grid](int column) { keep(grid, column); });
        controls::on(grid, &Grid::HeadMenu, this, [this, grid](QPoint where) { showMenu(grid, where); });
    }
    m_plans[grid] = std::move(plan);
    grid->setColumns(std::move(columns));
    apply(grid);
}

void CaddyColumns::apply(Grid *grid)
{
    if (!m_plans.contains(grid))        // no section has been shown in it yet
        return;
    const Plan &plan = m_plans[grid];
    for (std::size_t i = 0; i < plan.numbers.size(); ++i)
        if (plan.numbers[i] > 0)
            if (const double twips = m_sizes.width(plan.word, plan.numbers[i]); twips > 0)
                grid->setColumnWidthTwips(static_cast<int>(i), static_cast<int>(twips));
    applyHeight(grid);
    fill(grid);
}

void CaddyColumns::applyHeight(Grid *grid)
{
    const Plan &plan = m_plans[grid];
    int height = m_sizes.rowHeight(plan.word);
    if (height == defaultRowHeight)
        height = std::max(height, controls::toTwips(plan.lines * grid->fontMetrics().lineSpacing() + rowMargin));
    grid->setRowHeightTwips(height);
    m_heights[grid] = grid->rowHeightTwips();
}

std::int16_t CaddyColumns::rowHeight(Grid *grid) const
{
    const int now = grid->rowHeightTwips();
    const bool untouched = m_heights.contains(grid) && m_heights.value(grid) == now;
    return untouched ? m_sizes.rowHeight(m_plans.value(grid).word) : static_cast<std::int16_t>(now);
}

void CaddyColumns::keep(Grid *grid, int column)
{
    const Plan &plan = m_plans[grid];
    const auto at = static_cast<std::size_t>(column);
    if (at < plan.numbers.size() && plan.numbers[at] > 0)
        m_sizes.setWidth(plan.word, plan.numbers[at], grid->columnWidthTwips(column));
    fill(grid);
}

void CaddyColumns::fitColumns(Grid *grid)
{
    const Plan &plan = m_plans[grid];
    for (const GridWord &word : gridWords())
        for (std::size_t i = 0; word.word == plan.word && i < word.widths.size(); ++i)
            m_sizes.setWidth(plan.word, static_cast<int>(i) + 1, word.widths[i]);
    apply(grid);
}

void CaddyColumns::showMenu(Grid *grid, QPoint where)
{
    auto *menu = new QMenu(grid);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction *fit = menu->addAction(u"Fit &columns"_s);
    fit->setObjectName(u"mnuFitColumns"_s);
    controls::on(fit, &QAction::triggered, this, [this, grid] { fitColumns(grid); });
    menu->popup(where);
}

bool CaddyColumns::isSet(const Plan &plan, int column) const
{
    const int number = plan.numbers[static_cast<std::size_t>(column)];
    for (const GridWord &word : gridWords())
        if (word.word == plan.word && number > 0 && static_cast<std::size_t>(number) <= word.widths.size())
            return static_cast<int>(m_sizes.width(plan.word, number)) != word.widths[static_cast<std::size_t>(number - 1)];
    return false;
}

// The head and the sample text fit.
int CaddyColumns::least(const Grid *grid, const Plan &plan, int column) const
{
    const auto at = static_cast<std::size_t>(column);
    const int head = grid->horizontalHeader()->sectionSizeHint(column);
    if (at >= plan.samples.size() || plan.samples[at].isEmpty())
        return head;
    return std::max(head, grid->fontMetrics().horizontalAdvance(plan.samples[at]) + 2 * cellMargin);
}

void CaddyColumns::fill(Grid *grid)
{
    const Plan &plan = m_plans[grid];
    if (plan.wideColumn < 0)
        return;
    const std::vector<controls::GridColumn> &columns = grid->columns();
    const auto kept = [&](int column) {
        const int number = plan.numbers[static_cast<std::size_t>(column)];
        return controls::toPixels(number > 0 ? m_sizes.width(plan.word, number)
                                             : columns[static_cast<std::size_t>(column)].width);
    };
    std::map<int, int> widths;
    int others = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int at = static_cast<int>(i);
        if (columns[i].visible && at != plan.wideColumn)
            others += widths[at] = isSet(plan, at) ? kept(at) : std::max(kept(at), least(grid, plan, at));
    }
    const bool wideIsSet = isSet(plan, plan.wideColumn);
    const int room = grid->viewport()->width(), wide = kept(plan.wideColumn);
    const int wanted = std::max(wide, least(grid, plan, plan.wideColumn));
    if (const auto giving = widths.find(plan.givingColumn); giving != widths.end() && !isSet(plan, plan.givingColumn) && others + wanted > room) {
        const int given = std::min(others + wanted - room, giving->second - least(grid, plan, plan.givingColumn));
        giving->second -= std::max(given, 0);
        others -= std::max(given, 0);
    }
    const int rest = room - others - wanted;
    const auto grows = [&](int column) { return column != plan.wideColumn && !isSet(plan, column); };
    int shares = wide;
    for (const int column : plan.growing)
        if (grows(column))
            shares += kept(column);
    for (const int column : plan.growing) {
        if (!grows(column) || rest <= 0)
            continue;
        const int more = rest * kept(column) / shares;
        widths[column] += more;
        others += more;
    }
    widths[plan.wideColumn] = std::max(wideIsSet ? wide : std::min(wide, leastWide), room - others);
    for (const auto &[column, width] : widths)
        if (grid->columnWidth(column) != width)
            grid->setColumnWidthTwips(column, controls::toTwips(width));
}

bool CaddyColumns::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        if (Grid *grid = m_views.value(watched))
            fill(grid);
    return QObject::eventFilter(watched, event);
}

}
