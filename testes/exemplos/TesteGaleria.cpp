// SPDX-License-Identifier: LGPL-2.1-or-later
// The page of the silhouettes, driven by its own controls.
#include "hospedeiro/BotaoDeCor.h"
#include "hospedeiro/FundoPadronado.h"
#include "hospedeiro/Galeria.h"
#include "hospedeiro/PassosDaMascara.h"

#include "comum/Controle.h"
#include "comum/Dados.h"
#include "plataforma/Picture.h"
#include "simbolos/SimboloImagem.h"

#include <QComboBox>
#include <QLabel>
#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Sibrel;
using namespace Sibrel::Testes;
using namespace Hospedeiro;

namespace
{

QImage Pintada(QWidget &Controle)
{
    return Controle.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

// The frame's inside as it would be without a control.
QImage SoOFundo(const TSimboloImagem &Silhueta, TPadrao Padrao)
{
    return PadraoEmImagem(Silhueta.parentWidget()->contentsRect().size(), Padrao);
}

int Pixels(const QImage &Imagem, QRgb Cor)
{
    int Quantos = 0;
    for (int Y = 0; Y < Imagem.height(); ++Y)
        for (int X = 0; X < Imagem.width(); ++X)
            Quantos += Imagem.pixel(X, Y) == Cor ? 1 : 0;
    return Quantos;
}

} // namespace

class TesteGaleria : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void OfereceAsFigurasAoLadoDaBiblioteca();
    void SemFigurasSoOFundoAparece();
    void CadaSilhuetaNaSuaPosicao();
    void OsCincoPassosAcabamNaSilhueta_data();
    void OsCincoPassosAcabamNaSilhueta();
    void ACorChegaASilhuetasEPassos();
    void OFundoChegaASilhuetasEPassos();
    void AbreUmaImagemQualquer();
    void UmaImagemQueNaoSeLeERecusada();
    void OutraBibliotecaTrocaSoAsSuas();
    void UmaImagemGrandeNaoEsticaAJanela();
    void APagina();

private:
    TSimboloImagem &Silhueta(std::size_t Qual) { return *FGaleria->Silhuetas()[Qual]; }
    std::vector<QLabel *> ImagensDosPassos() const;

    std::unique_ptr<TGaleria> FGaleria;
};

void TesteGaleria::init()
{
    FGaleria = std::make_unique<TGaleria>();
    FGaleria->resize(800, 520);
    FGaleria->show();
    QVERIFY(QTest::qWaitForWindowExposed(FGaleria.get()));
    FGaleria->AtribuirBiblioteca(DadoDeExemplo(QStringLiteral("simbolos.txt")));
}

void TesteGaleria::cleanup()
{
    FGaleria.reset();
}

std::vector<QLabel *> TesteGaleria::ImagensDosPassos() const
{
    std::vector<QLabel *> Imagens;
    for (QLabel *Legenda : FGaleria->findChildren<QLabel *>())
        if (!Legenda->pixmap(Qt::ReturnByValue).isNull())
            Imagens.push_back(Legenda);
    return Imagens;
}

void TesteGaleria::OfereceAsFigurasAoLadoDaBiblioteca()
{
    const QStringList Nomes = FGaleria->Mascaras();
    QCOMPARE(Nomes.size(), 14);
    QVERIFY(Nomes.contains(QStringLiteral("farol.svg")));
    QVERIFY(Nomes.contains(QStringLiteral("periscopio.xbm")));
    QCOMPARE(FGaleria->Escolhida(), 0);
    QVERIFY(!Silhueta(0).ObterMascara().Empty());
    QCOMPARE(FGaleria->Atual(), QStringLiteral("amigo.png: 64 x 64 pixels"));
    QCOMPARE(FGaleria->Contagem(), QStringLiteral("14 máscaras"));
    auto *Caixa = FGaleria->findChild<QComboBox *>(QStringLiteral("Mascara"));
    QTest::keyClick(Caixa, Qt::Key_Down);
    QCOMPARE(FGaleria->Escolhida(), 1);
    QCOMPARE(Silhueta(2).ObterMascara().Width(), 48); // of the second, bandeira.png
}

void TesteGaleria::SemFigurasSoOFundoAparece()
{
    FGaleria->AtribuirBiblioteca(QStringLiteral("/nao/ha/tal/biblioteca.txt"));
    QCOMPARE(FGaleria->Mascaras(), QStringList());
    QCOMPARE(FGaleria->Escolhida(), -1);
    for (std::size_t I = 0; I < 3; ++I) {
        QVERIFY(Silhueta(I).ObterMascara().Empty());
        QWidget &Fundo = *Silhueta(I).parentWidget();
        QCOMPARE(Pintada(Fundo).copy(Fundo.contentsRect()), SoOFundo(Silhueta(I), TPadrao::Xadrez));
    }
    QVERIFY(ImagensDosPassos().empty());
}

void TesteGaleria::CadaSilhuetaNaSuaPosicao()
{
    FGaleria->Mostrar(static_cast<int>(FGaleria->Mascaras().indexOf(QStringLiteral("farol.svg"))));
    QVERIFY(!Silhueta(0).Centralizar() && !Silhueta(0).Esticar());
    QVERIFY(Silhueta(1).Centralizar());
    QVERIFY(Silhueta(2).Esticar());
    const QSize Lado = Silhueta(1).size();
    QVERIFY(Lado.width() >= 130 && Lado.height() >= 130);
    QCOMPARE(Silhueta(0).AreaDaMascara(), TRect(0, 0, 64, 64));
    const int X = (Lado.width() - 64) / 2;
    const int Y = (Lado.height() - 64) / 2;
    QCOMPARE(Silhueta(1).AreaDaMascara(), TRect(X, Y, X + 64, Y + 64));
    QCOMPARE(Silhueta(2).AreaDaMascara(), TRect(0, 0, Silhueta(2).width(), Silhueta(2).height()));
    const QRgb Azul = 0xFF0000FFU;
    const int NoCanto = Pixels(Pintada(*Silhueta(0).parentWidget()), Azul);
    QVERIFY(NoCanto > 200);
    QCOMPARE(Pixels(Pintada(*Silhueta(1).parentWidget()), Azul), NoCanto);
    QVERIFY(Pixels(Pintada(*Silhueta(2).parentWidget()), Azul) > 2 * NoCanto);
}

void TesteGaleria::OsCincoPassosAcabamNaSilhueta_data()
{
    QTest::addColumn<QString>("Nome");
    for (const char *Nome :
         {"farol.svg", "bandeira.png", "cruz.bmp", "periscopio.xbm", "fogo.gif", "floresta.ppm"})
        QTest::newRow(Nome) << QString::fromLatin1(Nome);
}

// What the last transfer leaves is what the control paints, to the pixel.
void TesteGaleria::OsCincoPassosAcabamNaSilhueta()
{
    QFETCH(QString, Nome);
    const auto Figura = LerGrafico(DadoDeExemplo(QStringLiteral("imagens/") + Nome));
    TFundoPadronado Fundo;
    Fundo.setFrameStyle(QFrame::NoFrame);
    Fundo.resize(Figura->Width(), Figura->Height());
    Fundo.AtribuirPadrao(TPadrao::Listras);
    TSimboloImagem Controle(&Fundo);
    Controle.resize(Fundo.size());
    Controle.AtribuirMascara(Figura.get());
    Controle.AtribuirCor(TColor(QColor(200, 40, 10)));
    const QImage Atras = PadraoEmImagem(Fundo.size(), TPadrao::Listras);
    const auto Passos = PassosDaMascara(Controle.ObterMascara(), QColor(200, 40, 10), Atras);
    QCOMPARE(Passos.size(), std::size_t(5));
    const QStringList Modos = {Passos[0].Modo, Passos[1].Modo, Passos[2].Modo, Passos[3].Modo,
                               Passos[4].Modo};
    QCOMPARE(Modos,
             QStringList({QStringLiteral("Máscara"), QStringLiteral("DSTINVERT"), QStringLiteral("MERGECOPY"),
                          QStringLiteral("SRCAND"), QStringLiteral("SRCPAINT")}));
    QImage Invertida = Passos[0].Imagem;
    Invertida.invertPixels();
    QCOMPARE(Passos[1].Imagem, Invertida);
    const int Escuros = Pixels(Passos[0].Imagem, 0xFF000000U);
    QVERIFY(Escuros > 0);
    QCOMPARE(Pixels(Passos[2].Imagem, qRgb(200, 40, 10)), Escuros);
    QCOMPARE(Pixels(Passos[3].Imagem, 0xFF000000U), Escuros);
    QCOMPARE(Pixels(Passos[4].Imagem, qRgb(200, 40, 10)), Escuros);
    QCOMPARE(Passos[4].Imagem, Pintada(Fundo));
}

void TesteGaleria::ACorChegaASilhuetasEPassos()
{
    QCOMPARE(FGaleria->Cor(), QColor(Qt::blue));
    auto *Botao = FGaleria->findChild<TBotaoDeCor *>();
    QCOMPARE(Botao->toolTip(), QStringLiteral("Cor da silhueta"));
    Botao->AtribuirCor(QColor(0, 128, 64));
    for (std::size_t I = 0; I < 3; ++I)
        QCOMPARE(Silhueta(I).ObterCor(), QColor(0, 128, 64));
    QVERIFY(Pixels(ImagensDosPassos()[4]->pixmap(Qt::ReturnByValue).toImage(), qRgb(0, 128, 64)) > 0);
    QCOMPARE(Pixels(ImagensDosPassos()[4]->pixmap(Qt::ReturnByValue).toImage(), qRgb(0, 0, 255)), 0);
}

void TesteGaleria::OFundoChegaASilhuetasEPassos()
{
    const QImage Antes = ImagensDosPassos()[3]->pixmap(Qt::ReturnByValue).toImage();
    auto *Caixa = FGaleria->findChild<QComboBox *>(QStringLiteral("Fundo"));
    QTest::keyClick(Caixa, Qt::Key_Down);
    QCOMPARE(FGaleria->Padrao(), TPadrao::Listras);
    QVERIFY(Antes != ImagensDosPassos()[3]->pixmap(Qt::ReturnByValue).toImage());
    FGaleria->AtribuirBiblioteca(QString()); // nothing in front of it
    QWidget &Fundo = *Silhueta(0).parentWidget();
    QCOMPARE(Pintada(Fundo).copy(Fundo.contentsRect()), SoOFundo(Silhueta(0), TPadrao::Listras));
}

void TesteGaleria::AbreUmaImagemQualquer()
{
    QTemporaryDir Pasta;
    QImage Imagem(10, 6, QImage::Format_RGB32);
    Imagem.fill(Qt::black);
    QVERIFY(Imagem.save(Pasta.filePath(QStringLiteral("minha.png"))));
    QVERIFY(FGaleria->Abrir(Pasta.filePath(QStringLiteral("minha.png"))));
    QCOMPARE(FGaleria->Mascaras().last(), QStringLiteral("minha.png"));
    QCOMPARE(FGaleria->Escolhida(), 14);
    QCOMPARE(Silhueta(0).ObterMascara().Width(), 10);
}

void TesteGaleria::UmaImagemQueNaoSeLeERecusada()
{
    QSignalSpy Recusas(FGaleria.get(), &TPagina::Erro);
    const int Antes = FGaleria->Escolhida();
    const QString Arquivo = DadoDeExemplo(QStringLiteral("simbolos.txt"));
    QVERIFY(!FGaleria->Abrir(Arquivo));
    QCOMPARE(Recusas.size(), 1);
    QCOMPARE(Recusas[0][0].toString(), QStringLiteral("Não foi possível ler a figura <%1>!").arg(Arquivo));
    QVERIFY(!Recusas[0][1].toString().isEmpty());
    QCOMPARE(FGaleria->Escolhida(), Antes);
    QCOMPARE(FGaleria->Mascaras().size(), 14);
}

void TesteGaleria::OutraBibliotecaTrocaSoAsSuas()
{
    QTemporaryDir Pasta;
    QVERIFY(QDir(Pasta.path()).mkdir(QStringLiteral("imagens")));
    QVERIFY(QFile::copy(DadoDeExemplo(QStringLiteral("imagens/rio.png")),
                        Pasta.filePath(QStringLiteral("imagens/rio.png"))));
    EscreverBytes(Pasta.filePath(QStringLiteral("imagens/leia.txt")), "nenhuma figura");
    QVERIFY(FGaleria->Abrir(DadoDeExemplo(QStringLiteral("imagens/cruz.bmp"))));
    FGaleria->AtribuirBiblioteca(Pasta.filePath(QStringLiteral("b.txt")));
    QCOMPARE(FGaleria->Mascaras(), QStringList({QStringLiteral("cruz.bmp"), QStringLiteral("rio.png")}));
    QCOMPARE(FGaleria->Escolhida(), 0); // the same mask is on show
    QCOMPARE(Silhueta(0).ObterMascara().Width(), 32);
    FGaleria->Mostrar(1);
    QCOMPARE(Silhueta(0).ObterMascara().Width(), 64);
}

void TesteGaleria::UmaImagemGrandeNaoEsticaAJanela()
{
    QTemporaryDir Pasta;
    const QString Arquivo = Pasta.filePath(QStringLiteral("grande.png"));
    QImage Imagem(3000, 2000, QImage::Format_Mono);
    Imagem.fill(0);
    QVERIFY(Imagem.save(Arquivo));
    QCoreApplication::processEvents(); // the layout is done
    const QSize Antes = FGaleria->minimumSizeHint();
    QVERIFY(FGaleria->Abrir(Arquivo));
    QCoreApplication::processEvents();
    QCOMPARE(FGaleria->minimumSizeHint(), Antes);
    QCOMPARE(FGaleria->size(), QSize(800, 520));
}

void TesteGaleria::APagina()
{
    CarregarFontes();
    QFont Fonte(FamiliaDeTexto);
    Fonte.setPixelSize(13);
    FGaleria->setFont(Fonte);
    FGaleria->Mostrar(static_cast<int>(FGaleria->Mascaras().indexOf(QStringLiteral("farol.svg"))));
    QCoreApplication::processEvents();
    // The frames alone: what stands around them is the style's.
    QImage Tira(3 * 140, 140, QImage::Format_RGB32);
    QPainter Pintor(&Tira);
    for (std::size_t I = 0; I < 3; ++I) {
        QWidget &Fundo = *Silhueta(I).parentWidget();
        Fundo.setFixedSize(140, 140);
        QCoreApplication::processEvents();
        Fundo.render(&Pintor, QPoint(static_cast<int>(I) * 140, 0));
    }
    Pintor.end();
    QCOMPARE(CompararComControle(Tira, QStringLiteral("hospedeiro-galeria")), QString());
}

QTEST_MAIN(TesteGaleria)
#include "TesteGaleria.moc"
