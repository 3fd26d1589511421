#pragma once

/// Answers modal windows while a test sits in their event loop.

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <vector>

namespace mrl::test {

/// What a message box showed.
struct SeenBox
{
    QString title;
    QString text;
    QStringList buttons;
    QString defaultButton;
};

/// Each modal window that opens meets the next answer; one that nobody answers is closed and reported.
class ModalAnswers
{
  public:
    ModalAnswers()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(0);
    }
    ~ModalAnswers() { EXPECT_TRUE(m_answers.empty()) << m_answers.size() << " windows did not come"; }
    ModalAnswers(const ModalAnswers&) = delete;
    ModalAnswers& operator=(const ModalAnswers&) = delete;

    /// Does anything with the next window.
    ModalAnswers& then(std::function<void(QWidget*)> answer)
    {
        m_answers.push_back(std::move(answer));
        return *this;
    }
    /// Clicks the button with this text in the next window.
    ModalAnswers& click(const QString& text)
    {
        return then([text](QWidget* window) {
            auto* button = buttonOf(window, text);
            ASSERT_NE(button, nullptr) << "no button " << text.toStdString();
            QTest::mouseClick(button, Qt::LeftButton);
        });
    }
    /// Presses a key in the next window.
    ModalAnswers& key(Qt::Key key)
    {
        return then([key](QWidget* window) {
            QWidget* focus = window->focusWidget();
            QTest::keyClick(focus ? focus : window, key);
        });
    }

    const std::vector<SeenBox>& boxes() const { return m_boxes; }
    bool allAnswered() const { return m_answers.empty(); }

    static QAbstractButton* buttonOf(QWidget* window, const QString& text)
    {
        for (auto* button : window->findChildren<QAbstractButton*>()) {
            if (button->text().remove(QLatin1Char('&')) == text) {
                return button;
            }
        }
        return nullptr;
    }

  private:
    // While an answer runs, a window that it opens is answered by the next one.
    void look()
    {
        QPointer<QWidget> window = QApplication::activeModalWidget();
        if (!window || window == m_answering) {
            return;
        }
        note(window);
        if (m_answers.empty()) {
            ADD_FAILURE() << "unexpected window: " << window->windowTitle().toStdString();
            window->close();
            if (auto* dialog = qobject_cast<QDialog*>(window)) {
                dialog->done(0);
            }
            return;
        }
        const auto answer = std::move(m_answers.front());
        m_answers.pop_front();
        const QPointer<QWidget> before = m_answering;
        m_answering = window;
        // A timer doesn't come again inside its own report; a new one does, for a window that the answer
        // opens.
        m_timer.start(0);
        answer(window);
        m_answering = before;
    }
    void note(QWidget* window)
    {
        auto* box = qobject_cast<QMessageBox*>(window);
        if (!box) {
            return;
        }
        SeenBox seen{box->windowTitle(), box->text(), {}, {}};
        for (auto* button : box->buttons()) {
            seen.buttons << button->text().remove(QLatin1Char('&'));
        }
        if (box->defaultButton()) {
            seen.defaultButton = box->defaultButton()->text().remove(QLatin1Char('&'));
        }
        m_boxes.push_back(seen);
    }

    QTimer m_timer;
    QPointer<QWidget> m_answering;
    std::deque<std::function<void(QWidget*)>> m_answers;
    std::vector<SeenBox> m_boxes;
};

} // namespace mrl::test
