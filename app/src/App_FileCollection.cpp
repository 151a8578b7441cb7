// The batch commands' steps.
#include "App_FileCollection.h"

#include "App_FileJob.h"
#include "App_FolderWalk.h"
#include "App_UserMessages.h"
#include "KemptUI_UserTexts.h"

#include <filesystem>

namespace App {

namespace fs = std::filesystem;

namespace {

constexpr int INFORMATION = 1;
constexpr int WARNING = 2;
constexpr int ERROR = 3;

std::string fill(const std::string& text, std::initializer_list<std::string_view> arguments)
{
    return KemptUI::fillTemplate(text, arguments);
}

std::string directoryOf(const std::string& path)
{
    return fs::path(path).parent_path().string();
}

// The counting walk: the total, and "Adding PATH" for each file.
class CountingVisitor : public FolderWalk::Visitor {
public:
    explicit CountingVisitor(BatchFeedback& feedback) : m_feedback(feedback) {}
    bool cancelled() override { return m_feedback.cancelled(); }
    void file(const std::string& path) override
    {
        ++m_total;
        m_feedback.setStatus(fill(userMessages().addingFile, {path}));
    }
    void unreadable(const std::string&, const std::string&) override {} // told by the second walk
    std::int32_t total() const { return m_total; }

private:
    BatchFeedback& m_feedback;
    std::int32_t m_total = 0;
};

// The formatting walk: the walk counter, the status, the file, the bar.
class FormattingVisitor : public FolderWalk::Visitor {
public:
    FormattingVisitor(BatchTarget& target, BatchFeedback& feedback, std::int32_t total, CollectionResult& result)
        : m_target(target), m_feedback(feedback), m_total(total), m_result(result)
    {
    }
    bool cancelled() override { return m_feedback.cancelled(); }
    void file(const std::string& path) override
    {
        ++m_counter;
        m_feedback.setStatus(fillNumbers(userMessages().fileNumber, {m_counter, m_total}));
        m_target.formatFile(path);
        ++m_result.files;
        m_feedback.step();
    }
    void unreadable(const std::string& directory, const std::string& reason) override
    {
        m_target.message(fill(userMessages().directoryUnreadable, {directory, reason}), ERROR);
        ++m_result.problems;
    }

private:
    BatchTarget& m_target;
    BatchFeedback& m_feedback;
    std::int32_t m_total;
    std::int32_t m_counter = 0; // the walk counter
    CollectionResult& m_result;
};

} // namespace

std::string fillNumbers(const std::string& text, std::initializer_list<std::int64_t> numbers)
{
    std::string out;
    auto next = numbers.begin();
    std::size_t from = 0;
    for (std::size_t at = text.find("%d"); at != std::string::npos && next != numbers.end();
         at = text.find("%d", from)) {
        out.append(text, from, at - from);
        out += std::to_string(*next++);
        from = at + 2;
    }
    out.append(text, from);
    return out;
}

BatchTarget::~BatchTarget() = default;
BatchFeedback::~BatchFeedback() = default;

bool BatchFeedback::confirm(const std::string&)
{
    return true;
}

void BatchFeedback::setStatus(const std::string&)
{
}

void BatchFeedback::setRange(int)
{
}

bool BatchFeedback::cancelled()
{
    return false;
}

FileProgress* BatchFeedback::fileProgress()
{
    return nullptr;
}

void BatchFeedback::endBatch(const std::string&)
{
}

FileCollection::FileCollection(BatchTarget& target, BatchFeedback& feedback, CollectionSetup setup)
    : m_target(target), m_feedback(feedback), m_setup(std::move(setup))
{
}

bool FileCollection::checkScheme(CollectionResult& result)
{
    if (m_setup.schemeSelected)
        return true;
    m_target.message(userMessages().noSchemeSelected, ERROR);
    result.end = CollectionResult::End::NO_SCHEME;
    return false;
}

CollectionResult FileCollection::formatFile(const std::string& path)
{
    CollectionResult result;
    if (!checkScheme(result))
        return result;
    if (!isFormattableFile(path, m_setup.extensions)
        && !m_feedback.confirm(fill(userMessages().confirmExtension, {path}))) {
        m_feedback.endBatch(directoryOf(path));
        result.end = CollectionResult::End::DECLINED;
        return result;
    }
    m_feedback.beginBatch();
    m_target.formatFile(path);
    result.files = 1;
    m_feedback.endBatch(directoryOf(path));
    return result;
}

CollectionResult FileCollection::formatFolderTree(const std::string& root)
{
    const UserMessages& texts = userMessages();
    CollectionResult result;
    if (!checkScheme(result))
        return result;
    m_feedback.clearMessages();
    if (!m_feedback.confirm(fill(texts.confirmTree, {root}))) {
        result.end = CollectionResult::End::DECLINED;
        return result;
    }
    m_target.message(fill(texts.formattingTree, {root, m_setup.schemeName}), INFORMATION);
    m_feedback.beginBatch();
    if (FileProgress* progress = m_feedback.fileProgress())
        progress->showStatus(fill(texts.creatingList, {root}));

    const FolderWalk walk(root, m_setup.extensions, m_setup.excludes);
    CountingVisitor counter(m_feedback);
    bool cancelled = walk.run(counter) == FolderWalk::End::CANCELLED;
    if (!cancelled) {
        m_feedback.setRange(counter.total());
        FormattingVisitor formatter(m_target, m_feedback, counter.total(), result);
        cancelled = walk.run(formatter) == FolderWalk::End::CANCELLED;
    }
    m_target.message(cancelled ? texts.cancelledByUser : texts.finishedTree, INFORMATION);
    if (cancelled)
        result.end = CollectionResult::End::CANCELLED;
    m_feedback.endBatch(root);
    return result;
}

bool FileCollection::readList(const std::string& path, ProjectList& list, const std::string& missingText,
                              CollectionResult& result)
{
    std::string error;
    const bool read = readProjectFile(path, list, error);
    if (read && !list.projects.empty())
        return true;
    if (!read)
        m_target.message(error, ERROR);
    m_feedback.alert(missingText);
    m_target.message(missingText, ERROR);
    result.end = CollectionResult::End::NOT_READ;
    return false;
}

// The steps a project and a workspace share before their files: a scheme to
// format with, the list read, and the user's yes.
bool FileCollection::openList(const std::string& path, const std::string& missingText,
                              const std::string& confirmTemplate, ProjectList& list, CollectionResult& result)
{
    if (!checkScheme(result))
        return false;
    m_feedback.clearMessages();
    if (!readList(path, list, missingText, result))
        return false;
    if (m_feedback.confirm(fill(confirmTemplate, {path})))
        return true;
    result.end = CollectionResult::End::DECLINED;
    return false;
}

CollectionResult FileCollection::formatProject(const std::string& path)
{
    const UserMessages& texts = userMessages();
    CollectionResult result;
    ProjectList list;
    if (!openList(path, texts.noActiveProject, texts.confirmProject, list, result))
        return result;
    // Item 0 is the project.
    const ProjectEntry& project = list.projects.front();
    m_target.message(fill(texts.formattingProject, {path, m_setup.schemeName}), INFORMATION);
    m_feedback.beginBatch();
    m_feedback.setRange(static_cast<int>(project.files.size()));
    tellProjectProblems(project, result);
    const bool done = formatProjectFiles(project, result);
    m_target.message(done ? texts.finishedProject : texts.cancelledByUser, INFORMATION);
    if (!done)
        result.end = CollectionResult::End::CANCELLED;
    m_feedback.endBatch(directoryOf(path));
    return result;
}

CollectionResult FileCollection::formatWorkspace(const std::string& path)
{
    const UserMessages& texts = userMessages();
    CollectionResult result;
    ProjectList list;
    if (!openList(path, texts.noWorkspace, texts.confirmWorkspace, list, result))
        return result;
    m_feedback.beginBatch();
    // A first pass sums the files of all projects for the bar.
    std::size_t total = 0;
    for (const ProjectEntry& project : list.projects)
        total += project.files.size();
    m_feedback.setRange(static_cast<int>(total));
    bool done = true;
    for (const ProjectEntry& project : list.projects) {
        if (project.path == path) { // the workspace's own entry
            m_target.message(fill(texts.formattingWorkspace, {path, m_setup.schemeName}), INFORMATION);
            continue;
        }
        m_target.message(fill(texts.formattingProject, {project.path, m_setup.schemeName}), INFORMATION);
        tellProjectProblems(project, result);
        if (!formatProjectFiles(project, result)) {
            done = false;
            break;
        }
    }
    m_target.message(done ? texts.finishedWorkspace : texts.cancelledByUser, INFORMATION);
    if (!done)
        result.end = CollectionResult::End::CANCELLED;
    m_feedback.endBatch(directoryOf(path));
    return result;
}

CollectionResult FileCollection::formatProjectOrWorkspace(const std::string& path)
{
    return isWorkspaceKind(projectKind(path)) ? formatWorkspace(path) : formatProject(path);
}

void FileCollection::tellProjectProblems(const ProjectEntry& project, CollectionResult& result)
{
    if (!project.error.empty()) {
        m_target.message(fill(userMessages().projectUnreadable, {project.path, project.error}), ERROR);
        ++result.problems;
    }
    for (const std::string& note : project.notes)
        m_target.message(note, WARNING);
}

bool FileCollection::formatProjectFiles(const ProjectEntry& project, CollectionResult& result)
{
    const std::int32_t count = static_cast<std::int32_t>(project.files.size());
    for (std::int32_t i = 0; i < count; ++i) {
        if (m_feedback.cancelled())
            return false;
        const std::string& file = project.files[static_cast<std::size_t>(i)];
        if (file.empty() || !isFormattableFile(file, m_setup.extensions) || excludedFromProject(project, file))
            continue;
        m_feedback.setStatus(fillNumbers(userMessages().fileNumber, {i + 1, count}));
        m_target.formatFile(file);
        ++result.files;
        m_feedback.step();
    }
    return true;
}

bool FileCollection::excludedFromProject(const ProjectEntry& project, const std::string& file) const
{
    if (m_setup.excludes.empty())
        return false;
    std::error_code ec;
    const fs::path base = fs::absolute(m_setup.excludeBase.empty() ? directoryOf(project.path) : m_setup.excludeBase,
                                       ec);
    const fs::path relative = fs::absolute(file, ec).lexically_normal().lexically_relative(base.lexically_normal());
    return isExcluded(m_setup.excludes, relative.generic_string());
}

} // namespace App
