#pragma once

/// The table layer of the user-interface library: tables whose columns are addressed by an id, header items
/// that make the cells of their column, and cells that keep the number or the id itself.

#include <QLineEdit>
#include <QString>
#include <QStyledItemDelegate>
#include <QTableWidget>

#include <list>
#include <memory>
#include <utility>
#include <vector>

#include "host/mrl_export.h"
#include "host/mrl_widgets.h"

class MRL_H_TableWidget;

/// The description of a line edit, in a dialog or in a column.
struct StructLineEdit
{
    std::pair<int, int> kind{2, 0};
    int format = -15;   ///< 0 a whole number, -15 a text, -3 a plain factor
    int precision = -1; ///< decimals of a number at the least; -1: as many as it needs
    double value = 0.0;
    double firstBound = 99999.0; ///< below the second bound: the lowest value; above it: no limit
    double secondBound =
        -99999.0; ///< the highest value; of a text the greatest number of characters, when above 0
    double thirdBound = -99998.0;
    int flags = 0; ///< callers pass 0x800, 0x80000 and their sum
    QString text;  ///< shown in place of the number when the value is `value` and this isn't null
    QString separator = QStringLiteral(",");
    QString furtherText;
    std::vector<QString> list;
};
using StrLineEdit = StructLineEdit;

/// An entry of a combo column.
struct ComboList
{
    QString text;
    int id = 0;
    int reserved = -99999;
};

/// The text of a number. @param format -3. @param precision decimals at the least: 1.35, 0.70, 0.002, and as
/// many as the single-precision value has, up to six significant digits. The undefined value -99999 gives an
/// empty text.
MRL_HOST_API QString mrl_h_getDimStringFromVal(double value, int format, int precision);

/// A line edit with a description.
class MRL_HOST_API MRL_H_LineEdit : public QLineEdit
{
    Q_OBJECT
  public:
    MRL_H_LineEdit(QWidget* parent, const StructLineEdit& description, const char* name, const QString& unit,
                   const QString& toolTip, bool on);
    ~MRL_H_LineEdit() override;
    /// The description, for change.
    StrLineEdit& getStrLineEdit();
    /// Takes a new description and shows its value, or its text.
    void updateVal(const StrLineEdit& description);
    /// @param ok [out] may be null; false when the text is no number within the bounds, the result is then
    /// the last one
    double getVal(bool* ok = nullptr) const;
    void setVal(double value);

  private:
    struct Private;
    std::unique_ptr<Private> d;
};

class MRL_HOST_API MRL_QT_TableWidgetItem : public QTableWidgetItem
{
  public:
    explicit MRL_QT_TableWidgetItem(int type = UserType);
    /// False: the cell looks and is read-only. It can still be selected and copied.
    virtual void setEnabled(bool enabled);
    virtual bool isEnabled() const;
};

/// The base of all cells of a MRL_H_TableWidget. A cell keeps its value itself and makes its text on demand;
/// colours, flags and the roles 356, 357 and 1234001 cost bytes. Only a change of the value is reported by
/// `cellChanged`.
class MRL_HOST_API MRL_H_TwItem : public MRL_QT_TableWidgetItem
{
  public:
    explicit MRL_H_TwItem(int type);
    ~MRL_H_TwItem() override;
};

/// A cell of a line-edit column: a text or a number, as the column's description says.
class MRL_HOST_API MRL_H_TwSimpleLineEditItem : public MRL_H_TwItem
{
  public:
    /// Sets the text; of a number cell the number that the text names.
    void setText(const QString& text);
    /// Sets the number, whatever the bounds of the column.
    void setVal(float value);
    /// @param ok [out] may be null. @return the number, 0 for a text that is none
    double getVal(bool* ok) const;
};

/// A number cell that can also stand for "no value of its own": its current id is -1 then.
class MRL_HOST_API MRL_H_TwEditableComboBoxItem : public MRL_H_TwSimpleLineEditItem
{
  public:
    bool setCurrentId(int id);
    int getCurrentId() const;
};

/// A cell of a combo column. It keeps the id, also one that the column's list doesn't have.
class MRL_HOST_API MRL_H_TwSimpleComboBoxItem : public MRL_H_TwItem
{
  public:
    /// @return false when the column's list has no such id; the cell keeps it all the same and shows the
    /// number
    bool setCurrentId(int id);
    int getCurrentId() const;
};

/// The header of a column: its id, and the maker of its cells.
class MRL_HOST_API MRL_H_TwHeaderItem : public MRL_QT_TableWidgetItem
{
  public:
    MRL_H_TwHeaderItem(int type, int id, const QString& caption, const QString& toolTip,
                       Qt::Alignment alignment);
    ~MRL_H_TwHeaderItem() override;
    int id() const;
    /// False: the cells of the column can't be edited, whatever they are told themselves.
    void setColumnEnabled(bool enabled);
    bool isColumnEnabled() const;
    /// A new cell of this column. The caller owns it until it is put into a table.
    virtual MRL_H_TwItem* createEmptyItem() = 0;
};

class MRL_HOST_API MRL_H_TwHeaderLineEditItem : public MRL_H_TwHeaderItem
{
  public:
    MRL_H_TwHeaderLineEditItem(int id, const StructLineEdit& description, const QString& caption,
                               const QString& toolTip, bool first, bool second, Qt::Alignment alignment);
    ~MRL_H_TwHeaderLineEditItem() override;
    /// The host's default description of a format.
    static StructLineEdit getDefaultStrcLe(int format);
    MRL_H_TwItem* createEmptyItem() override;
    const StructLineEdit& description() const;
};

class MRL_HOST_API MRL_H_TwHeaderComboBoxItem : public MRL_H_TwHeaderItem
{
  public:
    MRL_H_TwHeaderComboBoxItem(int id, const std::list<ComboList>& entries, const QString& caption,
                               const QString& toolTip, bool on, Qt::Alignment alignment);
    ~MRL_H_TwHeaderComboBoxItem() override;
    MRL_H_TwItem* createEmptyItem() override;
    /// The entries that the cells of the column offer, all rows the same. @param row any
    std::list<ComboList> getComboEntries(int row) const;
    /// Replaces what the cells offer, without changing their ids. A cell whose shown text changes thereby
    /// reports `cellChanged`, unless the table's signals are blocked.
    void setComboEntries(const std::list<ComboList>& entries);
};

class MRL_HOST_API MRL_QT_TableWidget : public QTableWidget
{
    Q_OBJECT
  public:
    explicit MRL_QT_TableWidget(QWidget* parent = nullptr, const char* name = nullptr);
    MRL_QT_TableWidget(int rows, int columns, QWidget* parent = nullptr, const char* name = nullptr);
    ~MRL_QT_TableWidget() override;
    void activateSearchEnabled(bool on);
    /// True: getContextMenu() builds a new menu on each call.
    void setResetContextMenuOnCreation(bool on);
};

class MRL_HOST_API MRL_H_TableWidget : public MRL_QT_TableWidget
{
    Q_OBJECT
  public:
    /// How new rows are made; the tables of the managers pass 1.
    enum CreateType : int { CreateNone = 0, CreateCells = 1 };

    explicit MRL_H_TableWidget(QWidget* parent = nullptr, const char* name = nullptr);
    MRL_H_TableWidget(int rows, int columns, QWidget* parent = nullptr, const char* name = nullptr);
    ~MRL_H_TableWidget() override;

    /// Installs a header item, which the table then owns; from then on its id finds the column.
    void setHorizontalHeaderItem(int column, QTableWidgetItem* item);
    /// The cell of a row in the column that has the id, or null. Constant time.
    QTableWidgetItem* itemOnColId(int row, int id) const;
    QTableWidgetItem* horizontalHeaderItemOnColId(int id) const;
    /// The position of the column with this id, -1 when there is none.
    int getColumnNumber(int id) const;
    /// The id of the column at this position, -1 when there is none.
    int getColumnId(int column) const;
    /// Appends rows, filled with cells made by each header item's createEmptyItem. Reports no `cellChanged`.
    void appendNewRows(int count, CreateType type);
    /// True: a value entered in a selected cell goes to the same column of all selected rows.
    void setMultiEditingEnabled(bool on);
    /// False: the context menu has no entries for new and delete.
    void setContextmenueEnabled_new_del(bool on);
    /// The menu with the standard entries of the table, owned by the table.
    virtual MRL_QT_Menu* getContextMenu();

    struct Private;

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    std::unique_ptr<Private> d;
};

/// The frame that carries a table and the widgets beside it.
class MRL_HOST_API MRL_H_TableWidgetBox : public QFrame
{
    Q_OBJECT
  public:
    MRL_H_TableWidgetBox(MRL_H_TableWidget* table, QWidget* parent, const char* name);
};

/// The delegate of such tables: makes the editors of the cells.
class MRL_HOST_API MRL_H_DelegateItem : public QStyledItemDelegate
{
    Q_OBJECT
  public:
    explicit MRL_H_DelegateItem(QObject* parent = nullptr);
    ~MRL_H_DelegateItem() override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
};
