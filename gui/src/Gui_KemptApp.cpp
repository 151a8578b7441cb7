// The start-up block and its boxes.
#include "Gui_KemptApp.h"

#include "App_SchemeStore.h"
#include "App_UserMessages.h"
#include "Gui_KemptDlg.h"
#include "Gui_StateIcons.h"
#include "KemptUI_PropertySetStore.h"
#include "KemptUI_UserTexts.h"
#include "Trn_Exception.h"
#include "Varnel_Contract.h"

#include <QMessageBox>

#include <new>

namespace Gui {

namespace {

void tell(QMessageBox::Icon icon, const std::string& text)
{
    QMessageBox box(icon, KemptUI::PRODUCT_NAME, QString::fromStdString(text), QMessageBox::Ok);
    box.setObjectName("failureBox");
    box.exec();
}

std::string unexpected(const std::string& details)
{
    return KemptUI::fillTemplate(App::userMessages().unexpectedError, {details});
}

} // namespace

KemptApp::KemptApp(int& argc, char** argv) : QApplication(argc, argv)
{
    setUpApplication();
}

void KemptApp::setUpApplication()
{
    QApplication::setApplicationName(KemptUI::PRODUCT_NAME);
    QApplication::setApplicationVersion(App::programVersion());
    QApplication::setOrganizationName(App::companyName());
    QApplication::setDesktopFileName("tidewright-gui");
    QApplication::setWindowIcon(applicationIcon());
}

bool KemptApp::guarded(const std::function<void()>& body)
{
    try {
        body();
        return true;
    } catch (const KemptUI::PropertySetStore::ReadError& e) {
        tell(QMessageBox::Warning, KemptUI::readErrorText(e.path()));
    } catch (const KemptUI::PropertySetStore::WriteError& e) {
        tell(QMessageBox::Warning, App::schemeWriteErrorText(e.path()));
    } catch (const Trn::Exception& e) {
        tell(QMessageBox::Critical, unexpected(e.what()));
    } catch (const Varnel::ContractViolation& e) {
        tell(QMessageBox::Critical, unexpected(e.what()));
    } catch (const std::bad_alloc&) {
        tell(QMessageBox::Critical, App::userMessages().outOfMemory);
    } catch (const std::exception& e) {
        tell(QMessageBox::Critical, unexpected(e.what()));
    } catch (...) {
        tell(QMessageBox::Critical, unexpected(""));
    }
    return false;
}

int KemptApp::startUp(bool eventLoop)
{
    guarded([eventLoop] {
        KemptDlg window;
        window.show();
        if (!eventLoop)
            return;
        QApplication::exec();
        if (window.failure())
            std::rethrow_exception(window.failure());
    });
    return 0;
}

int KemptApp::run()
{
    return startUp(true);
}

} // namespace Gui
