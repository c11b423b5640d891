// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/CacheDePinturas.h"

#include "plataforma/FontesInstaladas.h"

#include <QCache>
#include <QHashFunctions>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace Sibrel
{

static size_t qHash(const TChaveDePintura &C, size_t Semente) noexcept
{
    return qHashMulti(Semente, C.Conteudo, C.Variante, C.Largura, C.Altura, C.Codigo, C.Cor);
}

namespace
{

struct TPintura {
    QVarLengthArray<TChaveDePintura, 1> Dependencias; // the keys behind the first
    QImage Imagem;
    TPoint Deslocamento; // from the rectangle's corner, logical pixels
};

// A picture found lately, by a slot computed from its key. It spares the cache's own bookkeeping, whose
// linked list costs more than the search; a shortcut counts only while nothing was put in or thrown out
// since.
struct TAtalho {
    TChaveDePintura Chave;
    const TPintura *Pintura = nullptr;
    std::uint64_t Epoca = 0;
};

struct TEstado {
    const TPintura *Procurar(const TChaveDePintura &Chave)
    {
        constexpr std::uint64_t Espalhador = 0x9E3779B97F4A7C15U; // the golden ratio's bits
        const std::uint64_t Mistura = (Chave.Conteudo ^ Chave.Cor) + Chave.Variante +
                                      static_cast<std::uint64_t>(Chave.Largura) * 31U + Chave.Codigo;
        TAtalho &Atalho = Atalhos[static_cast<std::size_t>((Mistura * Espalhador) >> BitsForaDoAtalho)];
        if (Atalho.Epoca != Epoca || Atalho.Chave != Chave)
            Atalho = {Chave, Pinturas.object(Chave), Epoca};
        return Atalho.Pintura;
    }

    void Guardar(const TChaveDePintura &Chave, std::unique_ptr<TPintura> Pintura, qsizetype Custo)
    {
        ++Epoca;
        Pinturas.insert(Chave, Pintura.release(), Custo); // the cache owns it from here
    }

    void Esvaziar()
    {
        ++Epoca;
        Pinturas.clear();
    }

    static constexpr int BitsDoAtalho = 12;
    static constexpr int BitsForaDoAtalho = 64 - BitsDoAtalho;

    QCache<TChaveDePintura, TPintura> Pinturas{TCacheDePinturas::BytesMaximos};
    std::vector<TAtalho> Atalhos = std::vector<TAtalho>(std::size_t{1} << BitsDoAtalho);
    std::uint64_t Epoca = 1;
    std::uint64_t Preparadas = 0;
    std::uint64_t GeracaoDasFontes = 0;
};

// Owned; from module start to module stop. Not a static object: the library's stop would find it destroyed.
constinit TEstado *Lembradas = nullptr;

// Pictures may hold glyphs: none outlives a change of the application's fonts.
void AcompanharFontes(TEstado &E)
{
    if (const std::uint64_t Geracao = GeracaoDasFontes(); Geracao != E.GeracaoDasFontes) {
        E.Esvaziar();
        E.GeracaoDasFontes = Geracao;
    }
}

bool MesmasDependencias(const TPintura &Pintura, const TPinturaPedida &Pedida) noexcept
{
    return std::equal(Pintura.Dependencias.begin(), Pintura.Dependencias.end(), Pedida.Chaves.begin() + 1,
                      Pedida.Chaves.end());
}

// The smallest rectangle that holds every pixel that is not see-through.
QRect AreaVisivel(const QImage &Imagem)
{
    QRect Area;
    for (int Y = 0; Y < Imagem.height(); ++Y) {
        const auto *Inicio = reinterpret_cast<const QRgb *>(Imagem.constScanLine(Y));
        const auto *Fim = Inicio + Imagem.width();
        const auto Visivel = [](QRgb P) { return P != 0; };
        const auto *Primeiro = std::find_if(Inicio, Fim, Visivel);
        if (Primeiro == Fim)
            continue;
        const auto *Ultimo =
            std::find_if(std::reverse_iterator(Fim), std::reverse_iterator(Inicio), Visivel).base() - 1;
        Area |= QRect(QPoint(static_cast<int>(Primeiro - Inicio), Y),
                      QPoint(static_cast<int>(Ultimo - Inicio), Y));
    }
    return Area;
}

bool Opaca(const QImage &Imagem)
{
    for (int Y = 0; Y < Imagem.height(); ++Y) {
        const auto *Inicio = reinterpret_cast<const QRgb *>(Imagem.constScanLine(Y));
        if (!std::all_of(Inicio, Inicio + Imagem.width(), [](QRgb P) { return qAlpha(P) == 255; }))
            return false;
    }
    return true;
}

// Cuts the margins that show nothing (whole logical pixels, so that the picture stays on the grid) and drops
// an alpha that says nothing: both make the blit that follows shorter.
void Enxugar(TPintura &Pintura, int Densidade)
{
    const QRect Visivel = AreaVisivel(Pintura.Imagem);
    if (Visivel.isEmpty()) {
        Pintura.Imagem = QImage();
        return;
    }
    const double Dpr = Pintura.Imagem.devicePixelRatio();
    if (Densidade > 0 && Visivel != Pintura.Imagem.rect()) {
        const QPoint Canto(Visivel.left() / Densidade, Visivel.top() / Densidade);
        const QRect Corte(Canto * Densidade, Visivel.bottomRight());
        Pintura.Imagem = Pintura.Imagem.copy(Corte);
        Pintura.Deslocamento.X += Canto.x();
        Pintura.Deslocamento.Y += Canto.y();
    }
    if (Opaca(Pintura.Imagem))
        Pintura.Imagem = std::move(Pintura.Imagem).convertToFormat(QImage::Format_RGB32);
    Pintura.Imagem.setDevicePixelRatio(Dpr);
}

std::unique_ptr<TPintura> Preparar(const TRect &Rect, const TPinturaPedida &Pedida, const TPen &Caneta,
                                   QSize Fisico, QPainter::RenderHints Dicas,
                                   const std::function<void(TCanvas &)> &Pintar)
{
    auto Pintura = std::make_unique<TPintura>();
    const double Densidade = Pedida.Chaves.front().Densidade;
    Pintura->Dependencias.append(Pedida.Chaves.constData() + 1, Pedida.Chaves.size() - 1);
    Pintura->Deslocamento = {Pedida.Alcance.Left - Rect.Left, Pedida.Alcance.Top - Rect.Top};
    Pintura->Imagem = QImage(Fisico, QImage::Format_ARGB32_Premultiplied);
    Pintura->Imagem.fill(Qt::transparent);
    Pintura->Imagem.setDevicePixelRatio(Densidade);
    {
        QPainter Pintor(&Pintura->Imagem);
        Pintor.setRenderHints(Pintor.renderHints(), false);
        Pintor.setRenderHints(Dicas);
        Pintor.translate(-static_cast<double>(Pedida.Alcance.Left), -static_cast<double>(Pedida.Alcance.Top));
        TCanvas Canvas(Pintor);
        Canvas.Pen = Caneta;
        Pintar(Canvas);
    }
    const bool Inteira = Densidade == std::floor(Densidade);
    Enxugar(*Pintura, Inteira ? static_cast<int>(Densidade) : 0);
    return Pintura;
}

} // namespace

bool DesenharLembrada(TCanvas &Canvas, const TRect &Rect, const TPinturaPedida &Pedida, const TPen &Caneta,
                      const std::function<void(TCanvas &)> &Pintar)
{
    if (Lembradas == nullptr)
        return false;
    TEstado &E = *Lembradas;
    AcompanharFontes(E);
    const TPintura *Pintura = E.Procurar(Pedida.Chaves.front());
    if (Pintura == nullptr || !MesmasDependencias(*Pintura, Pedida)) {
        const double Densidade = Pedida.Chaves.front().Densidade;
        const double Largura = std::ceil(static_cast<double>(Pedida.Alcance.Width()) * Densidade);
        const double Altura = std::ceil(static_cast<double>(Pedida.Alcance.Height()) * Densidade);
        constexpr int BytesDoPixel = 4;
        // The keys of a composite of very many parts count as well.
        const auto BytesDasChaves =
            static_cast<double>(Pedida.Chaves.size() * qsizetype{sizeof(TChaveDePintura)});
        if (!(Largura * Altura * BytesDoPixel + BytesDasChaves <=
              static_cast<double>(TCacheDePinturas::BytesDeUma)))
            return false;
        if (Largura < 1 || Altura < 1)
            return true;
        std::unique_ptr<TPintura> Nova =
            Preparar(Rect, Pedida, Caneta, QSize(static_cast<int>(Largura), static_cast<int>(Altura)),
                     Canvas.Pintor().renderHints(), Pintar);
        ++E.Preparadas;
        const qsizetype Custo = Nova->Imagem.sizeInBytes() + qsizetype{sizeof(TPintura)} +
                                Nova->Dependencias.size() * qsizetype{sizeof(TChaveDePintura)};
        Pintura = Nova.get();
        E.Guardar(Pedida.Chaves.front(), std::move(Nova), Custo);
    }
    if (!Pintura->Imagem.isNull())
        Canvas.DesenharPreparada(Rect.Left + Pintura->Deslocamento.X, Rect.Top + Pintura->Deslocamento.Y,
                                 Pintura->Imagem);
    return true;
}

void CriarCacheDePinturas()
{
    if (Lembradas == nullptr)
        Lembradas = std::make_unique<TEstado>().release();
}

void LiberarCacheDePinturas() noexcept
{
    std::unique_ptr<TEstado>(std::exchange(Lembradas, nullptr)).reset();
}

qsizetype TCacheDePinturas::Bytes() noexcept
{
    return Lembradas != nullptr ? Lembradas->Pinturas.totalCost() : 0;
}
qsizetype TCacheDePinturas::Quantas() noexcept
{
    return Lembradas != nullptr ? Lembradas->Pinturas.size() : 0;
}
std::uint64_t TCacheDePinturas::Preparadas() noexcept
{
    return Lembradas != nullptr ? Lembradas->Preparadas : 0;
}

void TCacheDePinturas::Esvaziar() noexcept
{
    if (Lembradas != nullptr)
        Lembradas->Esvaziar();
}

} // namespace Sibrel
