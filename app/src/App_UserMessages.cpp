// The user texts, built once from their pieces.
#include "App_UserMessages.h"

#include "KemptUI_UserTexts.h"

// Set by the build (CMake cache variables), with neutral defaults.
#ifndef TW_COMPANY_NAME
#error "TW_COMPANY_NAME must be defined by the build"
#endif
#ifndef TW_WEB_ADDRESS
#error "TW_WEB_ADDRESS must be defined by the build"
#endif
#ifndef TW_SUPPORT_ADDRESS
#error "TW_SUPPORT_ADDRESS must be defined by the build"
#endif

namespace App {

namespace {

UserMessages buildMessages()
{
    const std::string P = KemptUI::PRODUCT_NAME;
    const std::string company = companyName();
    const std::string initEnding = P + " will now exit. Please contact " + company
        + " Technical Support and report this error.";
    UserMessages m;
    m.outOfMemory = P
        + " is out of memory. Please try closing applications before attempting to run this application again.";
    m.unexpectedError = "An unexpected error has occurred. The current " + P + " operation has failed. Please contact "
        + company + " Technical Support and report the following details: %s";
    m.readOnlyFile = "The file you are attempting to format is read only and cannot be formatted.";
    m.noSchemeSelected = "You have not selected a scheme to use when formatting. Please indicate via the " + P
        + " Options dialog which Scheme you wish to use when formatting before attempting to format again.";
    m.componentMissing = P + " was unable to load a component it needs for succesful operation. " + P
        + " will not be available.";
    m.noActiveProject = P
        + " was unable to find an active project in the currently loaded workspace. Please set a project to be "
          "active before trying this command again.";
    m.noWorkspace = "No workspace is currently loaded. Please open a workspace before trying this command again.";
    m.preparingFailed = P + " encountered an error while preparing the file for formatting. The file will not be "
                            "formatted.";
    m.servicesMissing = P
        + " was unable to successfully initialize. Operating system services that are required do not appear to be "
          "present."
        + initEnding;
    m.featuresNotWorking = P
        + " was unable to successfully initialize. Certain operating system. features are not operating as expected."
        + initEnding;
    m.featuresTooOld = P
        + " was unable to successfully initialize. Certain operating system features do not appear to be recent "
          "enough."
        + initEnding;

    m.settingsReadFailed = "Failed to read the settings file \"%s\". Any options you set during this session will "
                           "not be saved.";
    m.settingsSaveFailed = "Failed to create the settings file \"%s\". Any options you set during this session will "
                           "not be saved.";

    m.openingFile = "Opening file:\n%s";
    m.writingFile = "Writing file:\n%s";
    m.completedFile = "Completed file:\n%s";
    m.willNotBeFormatted = "The file will not be formatted:\n%s";
    m.formattingFile = "Formatting \"%s\".";
    m.cannotBeFound = "The file \"%s\" cannot be found.";
    m.noReadWritePermission = "The file \"%s\" does not have read/write permissions and cannot be formatted.";
    m.unableToRead = P + " was unable to read the contents of the file \"%s\". The file will not be formatted.";
    m.unableToBackUp = P + " was unable to create a backup file for the file \"%s\". The file will not be formatted.";
    m.unableToWrite = P
        + " was unable to write the formatted text back to the file \"%s\". The file will not be formatted.";
    m.formatSuccessful = " Format successful.";
    m.couldNotParse = P + " could not successfully parse the file %s. If the file contains only valid C/C++ then "
                          "please check the "
        + P + " FAQ at " + webAddress() + " to see if this is a known issue. Otherwise, please send an email to "
        + supportAddress() + ". The file will not be formatted.";
    m.willNotBeFormattedTail = " The file \"%s\" will not be formatted.";

    m.notARegularFile = "The file \"%s\" is not a regular file (it is %s) and cannot be formatted.";
    m.binaryFile = "The file \"%s\" looks like a binary file (it holds a NUL byte at offset %s). The file will not "
                   "be formatted.";
    m.wideText = "The file \"%s\" is %s text (it begins with that byte-order mark); only 8-bit text such as UTF-8 "
                 "can be formatted. The file will not be formatted.";
    m.tooLarge = "The file \"%s\" is %s bytes long, more than the limit of %s bytes. The file will not be formatted.";
    m.changedMeanwhile = "The file \"%s\" changed while it was being formatted. It has been left as it is now; "
                         "format it again.";
    m.tokensDiffer = "The formatted text of the file \"%s\" does not hold the same tokens as the file, from line %s: "
                     "%s. The file will not be formatted. Please report this as a bug.";
    m.extensionNotListed = "The file \"%s\" does not have a file extension registered with Tidewright as valid for "
                           "formatting.";

    m.statusFileCommand = "Format a single file";
    m.statusProjectCommand = "Format all C/C++ files in a Developer Studio project";
    m.statusWorkspaceCommand = "Format all C/C++ files in a Developer Studio workspace";
    m.statusTreeCommand = "Format all C/C++ files beneath a directory.";
    m.sourceFilesFilter = "C++ Source Files|";
    m.projectFilesFilter = "MS Visual Studio Project Files (*.dsp)|*.dsp||";
    m.workspaceFilesFilter = "MS Visual Studio Workspace Files (*.dsw)|*.dsw||";
    m.selectFolderTitle = "Select folder for formatting...";
    m.confirmTree = "You have chosen to format all C/C++ files under the directory tree \"%s\". Are you sure you "
                    "wish to continue?";
    m.confirmProject = "You have chosen to format all C/C++ files in the project \"%s\". Are you sure you wish to "
                       "continue?";
    m.confirmWorkspace = "You have chosen to format all C/C++ files in the workspace \"%s\". Are you sure you wish "
                         "to continue?";
    m.confirmExtension = "The file \"%s\" does not have a file extension registered with Tidewright as valid for "
                         "formatting. Format the file anyway?";
    m.formattingTree = "Formatting files under directory \"%s\" using scheme \"%s\".";
    m.formattingProject = "Formatting project \"%s\" using scheme \"%s\".";
    m.formattingWorkspace = "Formatting workspace \"%s\" using scheme \"%s\".";
    m.finishedTree = "Finished formatting directory tree.";
    m.finishedProject = "Finished formatting project.";
    m.finishedWorkspace = "Finished formatting workspace.";
    m.cancelledByUser = "Format operation cancelled at user's request.";
    m.creatingList = "Creating the list of C/C++ files in the directory tree %s";
    m.addingFile = "Adding %s";
    m.fileNumber = "Formatting file %d of %d";
    m.directoryUnreadable = "The directory \"%s\" cannot be read (%s). The files under it will not be formatted.";
    m.projectUnreadable = "The project \"%s\" cannot be read (%s). Its files will not be formatted.";
    return m;
}

} // namespace

const char* companyName()
{
    return TW_COMPANY_NAME;
}

const char* webAddress()
{
    return TW_WEB_ADDRESS;
}

const char* supportAddress()
{
    return TW_SUPPORT_ADDRESS;
}

const UserMessages& userMessages()
{
    static const UserMessages messages = buildMessages();
    return messages;
}

} // namespace App
