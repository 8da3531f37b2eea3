#include "widgets/handler_guard.h"

#include "core/prompts.h"
#include "core/table_limit.h"

#include <exception>

namespace quorvane {

namespace {

QString unexpectedError(const QString& what)
{
    return QStringLiteral("Something went wrong: %1").arg(what);
}

} // namespace

void runHandler(Prompts& prompts, const std::function<void()>& handler)
{
    try {
        handler();
    } catch (const TableLimitError& error) {
        prompts.message(error.text());
    } catch (const std::exception& error) {
        prompts.message(unexpectedError(QString::fromLocal8Bit(error.what())));
    }
}

} // namespace quorvane
