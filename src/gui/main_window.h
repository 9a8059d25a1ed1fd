// The one main window: menus from the command table, the plot, the four-pane status bar and
// dropped files. Every action becomes a command number for CommandDispatch.
#pragma once
#include <QMainWindow>

#include <map>

class PlotWidget;
class QAction;
class QLabel;

// The tool windows' update message.
constexpr int kToolWindowUpdateEvent = 1024 + 11;

class VantrelMainWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit VantrelMainWindow(QWidget* parent = nullptr);
    ~VantrelMainWindow() override;
    // Installs the window's table of main window calls and the Qt host over this window.
    void Install();
    // Runs a command after the queue is empty.
    void PostCommand(int command);
    // Menu states from the command table.
    void UpdateMenus();
    QAction* Action(int command) const;
    PlotWidget* Plot() const { return plot_; }
    QLabel* Pane(int i) const { return panes_[i]; }
    // Set by Exit once the user agreed: the close that follows goes through.
    bool closing = false;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void BuildMenus();
    PlotWidget* plot_;
    QLabel* panes_[4];
    std::map<int, QAction*> actions_;
};

// QWidget's MoveWindow and window pointer for the host when it is this window.
void PostCommandToMainWindow(void* window, int command);
