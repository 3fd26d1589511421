#pragma once

/// The widget layer of the user-interface library, on Qt widgets.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QString>
#include <QVBoxLayout>

#include <memory>
#include <set>

#include "host/mrl_export.h"

class QTableView;
class MRL_QT_TableWidget;

/// Connects by the signatures that Qt's SIGNAL and SLOT produce, such as "2clicked()" and "1accept()"; blanks
/// in them don't matter. Fails with an assertion, or with a critical message in builds without assertions, when
/// a signature does not exist or the arguments don't fit.
MRL_HOST_API bool mrl_connect(const QObject* sender, const char* signal, const QObject* receiver,
                              const char* slot, Qt::ConnectionType type);

/// The application-wide services: settings and switches.
///
/// The managers keep their settings in the group "LF_Manager". One of them is the host's: with "extras" at 1 they
/// offer what goes beyond their plain form, undo, search, filter, a list of findings and a question before steps
/// are lost. It is 0 when absent.
class MRL_HOST_API MRL_QT_ApplicationInterface
{
  public:
    virtual ~MRL_QT_ApplicationInterface();
    /// Reads a stored whole number. @param value [out] the default when the key is absent
    virtual bool getAppSettings(const QString& group, const QString& key, int& value, int defaultValue) = 0;
    /// Stores a whole number for good.
    virtual bool setAppSettings(const QString& group, const QString& key, int value) = 0;
    /// True when the package runs with its experimental functions switched on.
    static bool experimentalOn();
};

/// The application object of programs that load plug-ins.
class MRL_HOST_API MRL_QT_Application : public QApplication, public MRL_QT_ApplicationInterface
{
    Q_OBJECT
  public:
    MRL_QT_Application(int& argc, char** argv);
    ~MRL_QT_Application() override;
    bool getAppSettings(const QString& group, const QString& key, int& value, int defaultValue) override;
    bool setAppSettings(const QString& group, const QString& key, int value) override;
    /// Ends the process with a message and exit status 3 when there is no memory left for an event.
    bool notify(QObject* receiver, QEvent* event) override;
};

/// Loads the translation of a library in the user's language. May be made before the application object
/// exists, as a static object of a library: the translation is then installed with the application.
class MRL_HOST_API MRL_QT_InitTranslator
{
  public:
    /// @param context the name of the library's translation files
    explicit MRL_QT_InitTranslator(const char* context);
    ~MRL_QT_InitTranslator();
    MRL_QT_InitTranslator(const MRL_QT_InitTranslator&) = delete;
    MRL_QT_InitTranslator& operator=(const MRL_QT_InitTranslator&) = delete;

    struct Private;

  private:
    std::unique_ptr<Private> d;
};

class MRL_HOST_API MRL_QT_Dialog : public QDialog
{
    Q_OBJECT
  public:
    explicit MRL_QT_Dialog(QWidget* parent = nullptr, const char* name = nullptr, Qt::WindowFlags flags = {});
    ~MRL_QT_Dialog() override;
    void setCaption(const QString& title);
    using QWidget::restoreGeometry;
    /// Restores the size and place that were saved under the dialog's object name when it was closed last, or
    /// takes the given size the first time. Units: pixels
    void restoreGeometry(int width, int height);

  protected:
    /// Stores the geometry under this group and name instead of "Geometry" and the object name.
    void setGeometryKey(const QString& group, const QString& name);
    void hideEvent(QHideEvent* event) override;

  private:
    QString geometryName() const;

    QString m_geometryGroup = QStringLiteral("Geometry");
    QString m_geometryName;
    bool m_keepGeometry = false;
};

/// Modal message boxes. A null or empty button text gives no button; three of them give the standard button.
/// While a box waits for the user, no database of this process holds a write lock.
class MRL_HOST_API MRL_QT_MessageBox
{
  public:
    /// @param defaultButton index of the button that Enter presses
    /// @param escapeButton index of the button that Esc presses; -1: with more than one button Esc and the
    /// close button do nothing
    /// @return the index of the button pressed
    static int information(QWidget* parent, const QString& title, const QString& text,
                           const QString& button0 = QString(), const QString& button1 = QString(),
                           const QString& button2 = QString(), int defaultButton = 0, int escapeButton = -1);
    static int warning(QWidget* parent, const QString& title, const QString& text,
                       const QString& button0 = QString(), const QString& button1 = QString(),
                       const QString& button2 = QString(), int defaultButton = 0, int escapeButton = -1);
    static int critical(QWidget* parent, const QString& title, const QString& text,
                        const QString& button0 = QString(), const QString& button1 = QString(),
                        const QString& button2 = QString(), int defaultButton = 0, int escapeButton = -1);
    /// @param button0, button1, button2 standard buttons (QMessageBox::Yes and so on), 0 for none
    /// @return the standard button pressed
    static int question(QWidget* parent, const QString& title, const QString& text, int button0, int button1,
                        int button2 = 0);
};

/// A framed line or block of information.
class MRL_HOST_API MRL_QT_InfoText : public QFrame
{
    Q_OBJECT
  public:
    explicit MRL_QT_InfoText(const QString& text, QWidget* parent = nullptr, const char* name = nullptr);
    void setText(const QString& text);
    QString text() const;

  private:
    QLabel* m_label;
};

/// The row of OK and Cancel buttons.
class MRL_HOST_API MRL_QT_Ok : public QWidget
{
    Q_OBJECT
  public:
    /// @param buttons bit 0: OK, bit 1: Cancel
    explicit MRL_QT_Ok(QWidget* parent, int buttons = 3, const char* name = nullptr);
    QPushButton* cmdOk() const;
    QPushButton* cmdCancel() const;

  private:
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancel = nullptr;
};

class MRL_HOST_API MRL_QT_VBoxLayout : public QVBoxLayout
{
    Q_OBJECT
  public:
    MRL_QT_VBoxLayout();
    explicit MRL_QT_VBoxLayout(QWidget* parent, const char* name = nullptr);
};

class MRL_HOST_API MRL_QT_HBoxLayout : public QHBoxLayout
{
    Q_OBJECT
  public:
    MRL_QT_HBoxLayout();
    explicit MRL_QT_HBoxLayout(QWidget* parent, const char* name = nullptr);
};

class MRL_HOST_API MRL_QT_GridLayout : public QGridLayout
{
    Q_OBJECT
  public:
    MRL_QT_GridLayout();
    explicit MRL_QT_GridLayout(QWidget* parent, const char* name = nullptr);
};

class MRL_HOST_API MRL_QT_Action : public QAction
{
    Q_OBJECT
  public:
    MRL_QT_Action(const QString& text, const QKeySequence& shortcut, QObject* parent,
                  const char* name = nullptr);
    MRL_QT_Action(const QString& text, QObject* parent, const char* name = nullptr);
};

/// A push button that commits an open cell editor when it is pressed, whatever its focus policy.
class MRL_HOST_API MRL_QT_PushButton : public QPushButton
{
    Q_OBJECT
  public:
    explicit MRL_QT_PushButton(const QString& text, QWidget* parent = nullptr, const char* name = nullptr);

  protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

class MRL_HOST_API MRL_QT_CheckBox : public QCheckBox
{
    Q_OBJECT
  public:
    explicit MRL_QT_CheckBox(const QString& text, QWidget* parent = nullptr, const char* name = nullptr);
};

class MRL_HOST_API MRL_QT_Label : public QLabel
{
    Q_OBJECT
  public:
    explicit MRL_QT_Label(const QString& text, QWidget* parent = nullptr, const char* name = nullptr);
};

class MRL_HOST_API MRL_QT_Menu : public QMenu
{
    Q_OBJECT
  public:
    explicit MRL_QT_Menu(QWidget* parent = nullptr, const char* name = nullptr);
    /// Shows the menu at a global position. @return the action chosen, null for none
    QAction* exec(const QPoint& position, QAction* at = nullptr);
};

/// A combo box whose items carry a number of their own, their id.
class MRL_HOST_API MRL_QT4_ComboBox : public QComboBox
{
    Q_OBJECT
  public:
    explicit MRL_QT4_ComboBox(QWidget* parent = nullptr, const char* name = nullptr);
    using QComboBox::addItem;
    void addItem(const QString& text, int id);
    /// The id of the current item, -1 when there is none.
    int getCurrentId() const;
    /// Makes the first item with this id current. @return false, and no change, when there is none
    bool setCurrentId(int id);
    /// True: the list is at least as wide as its widest text.
    void setWidthTextEnabled(bool on);
    void showPopup() override;

  private:
    bool m_widthText = false;
};

/// A number input with a slider that passes over numbers that are excluded.
class MRL_HOST_API MRL_QT_AdvancedSlider : public QWidget
{
    Q_OBJECT
  public:
    /// @param one always 1. @param excluded the numbers that the input doesn't take
    MRL_QT_AdvancedSlider(QWidget* parent, int one, const char* name, const std::set<int>& excluded);
    ~MRL_QT_AdvancedSlider() override;

    void setRange(int lowest, int highest, int step);
    /// Shows a number. While the signals are blocked it is not corrected, and no signal is emitted.
    void setDisplayValue(double value);
    double getDisplayValue() const;
    /// True: the input is as wide as the longest number of the range.
    void adjustGUIElements(bool on);
    /// False: a typed number counts when the editing ends, and not with each key.
    void setKeyboardTracking(bool on);
    void setLineEditFocus();

  signals:
    /// The number typed or dragged, before it is corrected.
    void valueAboutToChange(double value);

  protected:
    /// The number that the input takes for the given one: the number itself when it is free, else the next
    /// free number above it, else the next one below it.
    double checkValidValue(double value) const;

  private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// A small window that shows a text while the thread works. It is painted before show() returns.
class MRL_HOST_API MRL_QT_BusyDialog : public QDialog
{
    Q_OBJECT
  public:
    explicit MRL_QT_BusyDialog(const QString& text, QWidget* parent = nullptr, const char* name = nullptr);
    void setText(const QString& text);
    void setVisible(bool visible) override;
    /// The user can't end it.
    void reject() override;

  private:
    QLabel* m_label;
};

/// Blocks the signals of an object until unblock() or its own end. Blocks nest: the end of an inner one restores
/// the state that it found. A MRL_H_TableWidget remembers that its cells have changed meanwhile; when the last
/// block of the table ends, it repaints and sorts once.
class MRL_HOST_API MRL_QT_SignalBlocker
{
  public:
    explicit MRL_QT_SignalBlocker(QObject* object);
    ~MRL_QT_SignalBlocker();
    MRL_QT_SignalBlocker(const MRL_QT_SignalBlocker&) = delete;
    MRL_QT_SignalBlocker& operator=(const MRL_QT_SignalBlocker&) = delete;
    void unblock();

  private:
    QObject* m_object;
    bool m_before;
};

/// Blocks the repainting of a table; otherwise like MRL_QT_SignalBlocker.
class MRL_HOST_API MRL_QT_UpdateBlocker
{
  public:
    explicit MRL_QT_UpdateBlocker(MRL_QT_TableWidget* table);
    ~MRL_QT_UpdateBlocker();
    MRL_QT_UpdateBlocker(const MRL_QT_UpdateBlocker&) = delete;
    MRL_QT_UpdateBlocker& operator=(const MRL_QT_UpdateBlocker&) = delete;
    void unblock();

  private:
    MRL_QT_TableWidget* m_table;
    bool m_before;
};

/// Blocks the sorting of a table; otherwise like MRL_QT_SignalBlocker. A table that was sorted is sorted again
/// when the last block ends.
class MRL_HOST_API MRL_QT_SortingBlocker
{
  public:
    explicit MRL_QT_SortingBlocker(QTableView* table);
    ~MRL_QT_SortingBlocker();
    MRL_QT_SortingBlocker(const MRL_QT_SortingBlocker&) = delete;
    MRL_QT_SortingBlocker& operator=(const MRL_QT_SortingBlocker&) = delete;
    void unblock();

  private:
    QTableView* m_table;
    bool m_before = false;
};
