#include "app/handler_guard.h"

#include "app/prompts.h"
#include "app/texts.h"
#include "store/table_limit.h"

#include <exception>

namespace quorvane {

void runHandler(Prompts& prompts, const std::function<void()>& handler)
{
    try {
        handler();
    } catch (const TableLimitError& error) {
        prompts.message(error.text());
    } catch (const std::exception& error) {
        prompts.message(main_texts::unexpectedError(QString::fromLocal8Bit(error.what())));
    }
}

} // namespace quorvane
