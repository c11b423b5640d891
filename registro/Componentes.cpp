// SPDX-License-Identifier: LGPL-2.1-or-later
#include "registro/Componentes.h"

#include "arvore/TreeViewXML.h"
#include "arvore/TreeViewXMLBD.h"
#include "simbolos/SimboloImagem.h"
#include "simbolos/TabelaDeSimbolos.h"
#include "simbolos/TabelaDeSimbolosBD.h"

#include <QFile>
#include <QPixmap>

#include <array>

namespace Sibrel
{

namespace
{

template <class Componente>
QWidget *Novo(QWidget *Dono)
{
    return new Componente(Dono); // the parent owns it
}

constexpr std::array DaTabela = {QLatin1String("CorTransparente")};

constexpr std::array DaImagem = {QLatin1String("Mascara"), QLatin1String("Cor"), QLatin1String("Centralizar"),
                                 QLatin1String("Esticar")};

constexpr std::array Componentes = {
    TComponenteDoPacote{QLatin1String("TTabelaDeSimbolos"), QLatin1String("simbolos/TabelaDeSimbolos.h"),
                        u"Tabela de símbolos numerados e rotulados", false, &Novo<TTabelaDeSimbolos>,
                        DaTabela},
    TComponenteDoPacote{QLatin1String("TSimboloImagem"), QLatin1String("simbolos/SimboloImagem.h"),
                        u"Máscara pintada em uma cor", true, &Novo<TSimboloImagem>, DaImagem},
    TComponenteDoPacote{QLatin1String("TTabelaDeSimbolosBD"), QLatin1String("simbolos/TabelaDeSimbolosBD.h"),
                        u"Tabela de símbolos preenchida por um banco de dados", false,
                        &Novo<TTabelaDeSimbolosBD>, DaTabela},
    TComponenteDoPacote{QLatin1String("TTreeViewXML"),
                        QLatin1String("arvore/TreeViewXML.h"),
                        u"Árvore de objetos descrita em XML",
                        true,
                        &Novo<TTreeViewXML>,
                        {}},
    TComponenteDoPacote{QLatin1String("TTreeViewXMLBD"),
                        QLatin1String("arvore/TreeViewXMLBD.h"),
                        u"Árvore de objetos montada de tabelas de um banco de dados",
                        true,
                        &Novo<TTreeViewXMLBD>,
                        {}},
};

} // namespace

QIcon TComponenteDoPacote::Icone() const
{
    const QString Recurso = QStringLiteral(":/sibrel/paleta/%1.bmp").arg(QString(Classe).toUpper());
    return QFile::exists(Recurso) ? QIcon(Recurso) : QIcon();
}

std::span<const TComponenteDoPacote> ComponentesDoPacote() noexcept
{
    return Componentes;
}

} // namespace Sibrel
