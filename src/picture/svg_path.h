// The data of a path, as few characters as they can be.
#pragma once

#include <charconv>
#include <cstdint>
#include <string>

// Appends steps to a text. Coordinates are whole hundredths of a pixel, y downwards.
class CSvgPath
{
public:
    explicit CSvgPath(std::string& strData) : m_strData(strData) {}

    void MoveTo(int x, int y) { Absolute('M', x, y); }
    // Relative to the last point.
    void MoveBy(int dx, int dy) { Step('m', { dx, dy }); }
    void LineBy(int dx, int dy)
    {
        if (dy == 0)
            Step('h', { dx });
        else if (dx == 0)
            Step('v', { dy });
        else
            Step('l', { dx, dy });
    }
    void CurveBy(int dx1, int dy1, int dx, int dy) { Step('q', { dx1, dy1, dx, dy }); }
    void CubicBy(int dx1, int dy1, int dx2, int dy2, int dx, int dy)
    {
        Step('c', { dx1, dy1, dx2, dy2, dx, dy });
    }
    void Close() { Command('z'); }

    void Rect(int nLeft, int nTop, int nRight, int nBottom)
    {
        MoveTo(nLeft, nTop);
        LineBy(nRight - nLeft, 0);
        LineBy(0, nBottom - nTop);
        LineBy(nLeft - nRight, 0);
        Close();
    }

private:
    void Command(char ch)
    {
        if (ch == m_chLast && ch != 'z')
        {
            m_bDigit = true;
            return;
        }
        m_strData += ch;
        m_chLast = ch;
        m_bDigit = false;
    }
    void Step(char ch, std::initializer_list<int> numbers)
    {
        Command(ch);
        for (const int n : numbers)
            Number(n);
        if (ch == 'm')
            m_chLast = '\0';  // what follows a move without a letter is a line
    }
    void Absolute(char ch, int x, int y)
    {
        m_chLast = '\0';
        Step(ch, { x, y });
        m_chLast = '\0';
    }
    void Number(int n)
    {
        char szDigits[16];
        if (m_bDigit && n >= 0)
            m_strData += ' ';
        const auto end = std::to_chars(szDigits, szDigits + sizeof szDigits, n);
        m_strData.append(szDigits, end.ptr);
        m_bDigit = true;
    }

    std::string& m_strData;
    char m_chLast = '\0';
    bool m_bDigit = false;  // the text ends in one
};
