// SPDX-License-Identifier: LGPL-2.1-or-later
// A tree view ready to be looked at: rows of every kind, symbols, fonts that are the same everywhere.
#pragma once

#include "ComumArvore.h"
#include "comum/Dados.h"
#include "simbolos/SimboloFonte.h"

#include <QApplication>
#include <QImage>
#include <QPalette>

#include <memory>

namespace Sibrel::Testes
{

/// A new node that has loaded an element, open.
inline TTreeNodeXML *Novo(TTreeViewXML &Vista, TTreeNode *Pai, const QString &XML,
                          const TRefNoXML &Classe = TRefNoXML::De<TTreeNodeXML>())
{
    auto *No = static_cast<TTreeNodeXML *>(Vista.Nos().AddNode(Classe.Criar(Vista.Nos()), Pai));
    No->AtribuirXML(XML);
    No->Expand();
    return No;
}

/// Three glyphs of the bundled symbol font, labelled.
inline std::unique_ptr<TTabelaDeSimbolos> Tabela()
{
    auto T = std::make_unique<TTabelaDeSimbolos>();
    for (const int Codigo : {33, 34, 35}) {
        auto S = std::make_unique<TSimboloFonte>();
        S->Caracter = static_cast<std::uint8_t>(Codigo);
        S->Fonte.AtribuirName(FamiliaDeSimbolos);
        S->Fonte.AtribuirCharset(TFont::CharsetSimbolo);
        T->Simbolos().Add(std::move(S));
        T->ObterRotulos().Add(QStringLiteral("Símbolo %1").arg(Codigo));
    }
    return T;
}

inline TFont Fonte(int Altura)
{
    TFont F;
    F.AtribuirName(FamiliaDeTexto);
    F.AtribuirHeight(-Altura);
    return F;
}

/// A view with every kind of row, in colours of its own.
struct TCena {
    explicit TCena(int Linha = 16, bool ComTabela = true)
        : Simbolos(Tabela())
    {
        Vista.resize(260, 12 * Linha);
        Vista.setFrameShape(QFrame::NoFrame);
        Vista.setIndentation(19);
        Vista.AtribuirItemHeight(Linha);
        Vista.AtribuirFonte(Fonte(Linha - 5));
        Vista.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        Vista.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        QPalette Cores;
        Cores.setColor(QPalette::Base, Qt::white);
        Cores.setColor(QPalette::Text, Qt::black);
        Cores.setColor(QPalette::Highlight, QColor(0, 0, 128));
        Cores.setColor(QPalette::HighlightedText, Qt::white);
        QApplication::setPalette(Cores);
        Vista.ensurePolished();
        if (ComTabela)
            Vista.AtribuirTabelaDeSimbolos(Simbolos.get());
        A = Novo(Vista, nullptr, U("Brigada", "1", {}, "Cor='0' Símbolo='0'"));
        B = Novo(Vista, A, U("Batalhão", "2", {}, "Cor='255' Símbolo='1'"));
        C = Novo(Vista, B,
                 U("Companhia com um nome muito comprido, que não cabe", "3", {}, "Cor='32768' Símbolo='2'"));
        Novo(Vista, B, U("Fora da tabela", "4", {}, "Cor='0' Símbolo='3'"));
        Novo(Vista, B, U("Negativo", "5", {}, "Cor='0' Símbolo='-1'"));
        Elo = Novo(Vista, A, U("elo", "2", {}, "Link='sim'"));
        Vista.Nos().AddChild(A, QStringLiteral("não é XML"));
        Fechado = Novo(Vista, A, U("Fechado", "6", {}, "Cor='16711680' Símbolo='0'"));
        Novo(Vista, Fechado, U("Dentro", "7"));
        Fechado->Collapse();
        Novo(Vista, nullptr, U(QStringLiteral("שלום עולם"), "8", {}, "Cor='0' Símbolo='0'"));
        Ultimo = Novo(Vista, nullptr, U("Último", "9", {}, "Cor='8421504' Símbolo='1'"));
        Vista.show();
    }
    QImage Imagem(qreal Densidade = 1)
    {
        QImage Tela(Vista.viewport()->size() * Densidade, QImage::Format_RGB32);
        Tela.setDevicePixelRatio(Densidade);
        Tela.fill(Qt::white);
        Vista.viewport()->render(&Tela);
        return Tela;
    }
    std::unique_ptr<TTabelaDeSimbolos> Simbolos;
    TTreeViewXML Vista;
    TTreeNodeXML *A = nullptr;
    TTreeNodeXML *B = nullptr;
    TTreeNodeXML *C = nullptr;
    TTreeNodeXML *Elo = nullptr;
    TTreeNodeXML *Fechado = nullptr;
    TTreeNodeXML *Ultimo = nullptr;
};

/// Puts the focus on the view.
inline void Focar(TTreeViewXML &Vista)
{
    Vista.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&Vista));
    Vista.setFocus();
    QVERIFY(Vista.hasFocus());
}

/// A point of the view's rows, in its window.
inline QPoint NaJanela(const TTreeViewXML &Vista, const QPoint &Ponto)
{
    return Vista.viewport()->mapTo(Vista.window(), Ponto);
}

} // namespace Sibrel::Testes
