#include "host/Failure.h"

#include <exception>

#include "drawing/SceneBuilder.h"
#include "host/CommandLine.h"
#include "host/Desktop.h"
#include "host/ImportedPart.h"
#include "host/LibraryIndex.h"
#include "host/OutputFile.h"
#include "host/Solids.h"

namespace host {

Failure CurrentFailure(const std::string& file) {
    const std::string subject = file.empty()             ? "the file"
                                : file == kStandardInput ? "standard input"
                                                         : '"' + file + '"';
    try {
        throw;
    } catch (const UsageError& error) {
        return {kWrongUsage, std::string(error.what()) + " (--help tells more)"};
    } catch (const QueryError& error) {
        return {kWrongUsage, std::string(error.what()) + " (--help tells more)"};
    } catch (const IndexError& error) {
        return {kFailed, error.what()};
    } catch (const NoPart& error) {
        return {kRefused, error.what()};
    } catch (const ImportEnded& error) {
        return {kRefused, error.what()};
    } catch (const NothingToUndo& error) {
        return {kRefused, error.what()};
    } catch (const NoSuchFile& error) {
        return {kRefused, error.what()};
    } catch (const SourceError& error) {
        return {kFailed, error.what()};
    } catch (const StoreError& error) {
        return {kFailed, subject + " could not be stored: " + error.what()};
    } catch (const SolidsError& error) {
        return {kFailed, "no solids of " + subject + " were written: " + error.what()};
    } catch (const drawing::DrawingError& error) {
        return {kFailed, "no picture of " + subject + " was written: " + error.what()};
    } catch (const RefusedOutput& error) {
        return {kRefused, error.what()};
    } catch (const OutputError& error) {
        return {kFailed, error.what()};
    } catch (const NoWindows& error) {
        return {kFailed, error.what()};
    } catch (const std::exception& error) {
        return {kFailed, subject + " could not be imported: " + error.what()};
    }
}

}  // namespace host
