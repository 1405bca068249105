#include "host/Failure.h"

#include <exception>

#include "host/CommandLine.h"
#include "host/Desktop.h"
#include "host/ImportedPart.h"
#include "host/PartLibrary.h"
#include "host/Solids.h"

namespace host {

Failure CurrentFailure(const std::string& file) {
    try {
        throw;
    } catch (const UsageError& error) {
        return {kWrongUsage, std::string(error.what()) + " (--help tells more)"};
    } catch (const NoPartNumber& error) {
        return {kRefused, error.what()};
    } catch (const StoreError& error) {
        return {kFailed, std::string("the part could not be stored: ") + error.what()};
    } catch (const SolidsError& error) {
        return {kFailed, std::string("no solids were written: ") + error.what()};
    } catch (const NoWindows& error) {
        return {kFailed, error.what()};
    } catch (const std::exception& error) {
        return {kFailed,
                (file.empty() ? "the file" : '"' + file + '"') + " could not be imported: " + error.what()};
    }
}

}  // namespace host
