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

constexpr bool Sempre = true;
constexpr bool NomeNoDocumento = true;

constexpr std::array DaTabela = {
    TPropriedadePublicada{QLatin1String("CorTransparente"),
                          u"Cor que não se pinta ao desenhar o buffer: através dela aparece o fundo", Sempre},
    TPropriedadePublicada{QLatin1String("Rotulos"),
                          u"Rótulos dos símbolos, um por linha, na ordem da tabela"},
    TPropriedadePublicada{QLatin1String("Tag"), u"Número para uso do programa"},
};

constexpr std::array DaImagem = {
    TPropriedadePublicada{QLatin1String("Mascara"),
                          u"Figura cujas partes escuras são pintadas; é reduzida a preto e branco", Sempre},
    TPropriedadePublicada{QLatin1String("Cor"), u"Cor em que as partes escuras da máscara são pintadas",
                          Sempre},
    TPropriedadePublicada{QLatin1String("Centralizar"),
                          u"Mostra a máscara no meio do controle, em seu tamanho; desliga Esticar", Sempre},
    TPropriedadePublicada{QLatin1String("Esticar"),
                          u"Estica a máscara por todo o controle; desliga Centralizar", Sempre},
};

constexpr std::array DaArvore = {
    TPropriedadePublicada{QLatin1String("ConfigurarPopup"),
                          u"Deixa o nó selecionado ajustar o menu de contexto antes que apareça", Sempre},
    TPropriedadePublicada{QLatin1String("ElementoRaiz"),
                          u"Nome que o elemento raiz dos documentos deve ter; vazio aceita qualquer um",
                          false, NomeNoDocumento},
    TPropriedadePublicada{QLatin1String("AtributoNome"),
                          u"Atributo que dá o nome de um elemento quando se procura o seu nó", false,
                          NomeNoDocumento},
};

constexpr std::array Componentes = {
    TComponenteDoPacote{QLatin1String("TTabelaDeSimbolos"), QLatin1String("simbolos/TabelaDeSimbolos.h"),
                        u"Tabela de símbolos numerados e rotulados", false, &Novo<TTabelaDeSimbolos>,
                        DaTabela},
    TComponenteDoPacote{QLatin1String("TSimboloImagem"), QLatin1String("simbolos/SimboloImagem.h"),
                        u"Máscara pintada em uma cor", true, &Novo<TSimboloImagem>, DaImagem},
    TComponenteDoPacote{QLatin1String("TTabelaDeSimbolosBD"), QLatin1String("simbolos/TabelaDeSimbolosBD.h"),
                        u"Tabela de símbolos preenchida por um banco de dados", false,
                        &Novo<TTabelaDeSimbolosBD>, DaTabela},
    TComponenteDoPacote{QLatin1String("TTreeViewXML"), QLatin1String("arvore/TreeViewXML.h"),
                        u"Árvore de objetos descrita em XML", true, &Novo<TTreeViewXML>, DaArvore},
    TComponenteDoPacote{QLatin1String("TTreeViewXMLBD"), QLatin1String("arvore/TreeViewXMLBD.h"),
                        u"Árvore de objetos montada de tabelas de um banco de dados", true,
                        &Novo<TTreeViewXMLBD>, DaArvore},
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
