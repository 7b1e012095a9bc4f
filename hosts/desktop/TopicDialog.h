#pragma once

#include "Topics.h"

#include "platform/mfc/CDialog.h"
#include "platform/mfc/afxcmn.h"

namespace ts::desktop
{

/// Lets the user choose the topic that a reminder is for.
class TopicDialog : public CDialog
{
  public:
    /// `topics` is not empty.
    TopicDialog(std::vector<Topic> topics, CWnd* parent);

    INT_PTR DoModal() override;
    /// The chosen one, after IDOK.
    [[nodiscard]] const Topic& GetTopic() const { return m_topics.at(m_chosen); }

  protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnActivate(NMHDR* notification, LRESULT* result);
    void OnSelection(NMHDR* notification, LRESULT* result);

    DECLARE_MESSAGE_MAP()

  private:
    void AddColumns();
    void AddTopics();
    void SelectFirstFree();
    [[nodiscard]] int SelectedRow() const;

    std::vector<Topic> m_topics;
    std::size_t m_chosen = 0;
    CWnd* m_parent;
    CListCtrl m_list;
};

} // namespace ts::desktop
