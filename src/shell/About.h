#pragma once

#include <QWidget>
#include <vector>

class QAbstractAnimation;
class QLabel;
class QSequentialAnimationGroup;

namespace mosaro::shell {

/// What the window says about the program and its user.
struct AboutFacts {
    QString version;
    QString build;
    QString userName; ///< Full name.
    int year = 0;

    [[nodiscard]] static AboutFacts ofThisProgram();
};

/// The About window. Each showing is a new instance and plays its credits anew; with reduced motion they
/// stand in their places at once.
class About : public QWidget {
    Q_OBJECT

public:
    /// The one that is up, or a new one.
    static About& sharedController();

    explicit About(const AboutFacts& facts);
    ~About() override;

    /// Centres and shows the window and starts the credits.
    void showWindow();
    /// Does nothing when the credits have been started before.
    void startCreditsAnimation();
    [[nodiscard]] bool isAnimated() const { return m_isAnimated; }

    /// How far the text fields are from their places; how much of a label is seen.
    [[nodiscard]] int textFieldOffset() const;
    [[nodiscard]] double labelAlpha() const;
    [[nodiscard]] double specialThanksAlpha() const;
    [[nodiscard]] int specialThanksWidth() const;

Q_SIGNALS:
    void creditsEnded();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Credit {
        QLabel* label;
        QLabel* textField;
        int restX;
    };

    void addCredit(const QString& label, const QString& text, int y);
    void hideTextField(Credit& credit);
    /// Moves all text fields by `distance` from where they are then.
    QAbstractAnimation* moveTextFields(int distanceBeyondWidth, bool withWidth, int milliseconds);
    QAbstractAnimation* fade(QWidget* widget, double alpha, int milliseconds);

    std::vector<Credit> m_credits;
    QLabel* m_versionInfo = nullptr;
    QLabel* m_copyrightInfo = nullptr;
    QLabel* m_specialThanksTo = nullptr;
    QSequentialAnimationGroup* m_animation = nullptr;
    bool m_isAnimated = false;
};

} // namespace mosaro::shell
