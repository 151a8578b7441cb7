// The texts the batch front shows to the user: the messages of the file job
// and of the program as a whole. Each is built once, on first use, from fixed
// pieces, the product name and the maker's configured names and addresses;
// "%s" marks where a path or a detail goes (fill with KemptUI::fillTemplate).
// The wording, misspellings included, is what users and their scripts see, so
// it is kept exactly.
#ifndef APP_USERMESSAGES_H
#define APP_USERMESSAGES_H

#include <string>

namespace App {

// The maker's names and addresses, set when the program is built.
const char* companyName();
const char* webAddress();
const char* supportAddress();

struct UserMessages {
    // The program.
    std::string outOfMemory;
    std::string unexpectedError;         // %s: the details
    std::string readOnlyFile;
    std::string noSchemeSelected;
    std::string componentMissing;
    std::string noActiveProject;
    std::string noWorkspace;
    std::string preparingFailed;
    std::string servicesMissing;
    std::string featuresNotWorking;
    std::string featuresTooOld;

    // The settings file (%s: its path).
    std::string settingsReadFailed;
    std::string settingsSaveFailed;

    // The file job: progress texts (%s: the path).
    std::string openingFile;
    std::string writingFile;
    std::string completedFile;
    std::string willNotBeFormatted;
    // The file job: messages (%s: the path unless said otherwise).
    std::string formattingFile;
    std::string cannotBeFound;
    std::string noReadWritePermission;
    std::string unableToRead;
    std::string unableToBackUp;          // goes out with its %s unfilled
    std::string unableToWrite;
    std::string formatSuccessful;        // prepared, shown nowhere
    std::string couldNotParse;
    std::string willNotBeFormattedTail;  // follows unexpectedError: %s the path

    // The file job: refusals of input that is no C or C++ text, and the
    // verification of the output (%s: the path, then the details).
    std::string notARegularFile;         // %s path, %s what it is
    std::string binaryFile;              // %s path, %s the offset of the NUL byte
    std::string wideText;                // %s path, %s the encoding
    std::string tooLarge;                // %s path, %s its size, %s the limit
    std::string changedMeanwhile;
    std::string tokensDiffer;            // %s path, %s line, %s what differs
    std::string extensionNotListed;

    // The batch commands: a folder tree, a project, a workspace, one file.
    // Status texts of the commands (the menu's help line).
    std::string statusFileCommand;
    std::string statusProjectCommand;
    std::string statusWorkspaceCommand;
    std::string statusTreeCommand;
    // What the pickers show.
    std::string sourceFilesFilter;       // followed by "*.EXT;*.EXT||"
    std::string projectFilesFilter;
    std::string workspaceFilesFilter;
    std::string selectFolderTitle;
    // Questions (%s: the path).
    std::string confirmTree;
    std::string confirmProject;
    std::string confirmWorkspace;
    std::string confirmExtension;
    // Information lines (%s: the path, then the scheme's name).
    std::string formattingTree;
    std::string formattingProject;
    std::string formattingWorkspace;
    std::string finishedTree;
    std::string finishedProject;
    std::string finishedWorkspace;
    std::string cancelledByUser;
    // Status and progress texts.
    std::string creatingList;            // %s: the directory
    std::string addingFile;              // %s: the path
    std::string fileNumber;              // %d: the file's number, %d: how many
    // Failures of a batch command.
    std::string directoryUnreadable;     // %s: the directory, %s: why
    std::string projectUnreadable;       // %s: the project, %s: why
};

// The table, built once.
const UserMessages& userMessages();

} // namespace App

#endif
